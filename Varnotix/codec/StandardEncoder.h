/// Writes an element set by the standard stream rules: PS3.5 and PS3.10.
#pragma once

#include "Varnotix/codec/OutputBuffer.h"
#include "Varnotix/codec/TransferSyntax.h"
#include "Varnotix/element/DcmElementSet.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// Options of a write by the standard stream rules.
struct SStandardOutput
{
    int syntax;                     ///< Of the data set; group 0002 is always in explicit VR little endian.
    Varnotix::EPixelForm pixelForm; ///< Of the transfer syntax, for Pixel Data that was not read in a form.
    bool groupLengths;              ///< Every group gets a group length, and not only group 0002.
    bool needsMeta;                 ///< A Transfer Syntax UID (0002,0010) is added where the set has none.
};

/// Encodes in two steps. Plan walks the set once and notes every header and value in stream order with its length, so
/// that all lengths are known before the first byte; Write follows the plan. The set does not change, and must not
/// change in between.
///
/// Elements are written in tag order, items as they are, elements without an item together in the first one. Values
/// that were read keep their bytes; odd lengths are padded by the VR's rule. Group lengths that the set has are
/// computed; that of group 0002 is always written.
class CStandardEncoder
{
public:
    explicit CStandardEncoder(const SStandardOutput& output) : m_output(output) {}

    void Plan(const CDcmElementSet& set);
    /// Size of the stream in bytes.
    std::uint64_t Size() const { return m_size; }
    void Write(COutputBuffer& out) const;

private:
    enum class EStep : BYTE
    {
        Value,       ///< Header and value of an element.
        Frames,      ///< Header and frames of Pixel Data.
        GroupLength, ///< A whole group length element; the length is its value.
        Sequence,    ///< Header of a sequence.
        Item,        ///< Header of an item.
        Delimiter    ///< Of an item or a sequence.
    };
    struct SStep
    {
        const CDcmElement* element = nullptr; // Null for items and delimiters.
        DWORD tag = 0;
        DWORD length = 0; // As the header has it.
        EStep step = EStep::Value;
        BYTE syntax = 0;
        BYTE vr = VR_NONE;           // As written; later VRs are taken from the element.
        bool isEncapsulated = false; // Of frames.
        bool isLong = false;         // The header has the form with a 32-bit length.
    };
    /// A data set while it is planned.
    struct SDataSet
    {
        int syntax;
        int depth;
        int bitsAllocated; // Of native Pixel Data; 0 where it is not known.
    };
    /// Elements of one data set.
    using Elements = std::span<CObject* const>;

    template <class KEY>
    static Elements InOrder(Elements elements, const KEY& key, std::vector<CObject*>& ordered);
    std::size_t RoomFor(std::size_t steps) const;
    std::uint64_t PlanDataSet(Elements elements, const SDataSet& dataSet);
    std::uint64_t PlanElement(const CDcmElement& element, const SDataSet& dataSet);
    std::uint64_t PlanSequence(const CDcmElement& element, const SDataSet& dataSet);
    std::uint64_t PlanItems(const CDcmElementSet& items, const SDataSet& dataSet);
    std::uint64_t PlanFrames(const CDcmElement& element, const SDataSet& dataSet);
    std::uint64_t PlanValue(const CDcmElement& element, int syntax);
    bool IsEncapsulated(const CDcmElement& element, const SDataSet& dataSet) const;
    bool WantsGroupLength(int group, const SDataSet& dataSet) const;
    SStep& AddStep(EStep step, DWORD tag, const CDcmElement* element, int syntax, int vr);
    SStep& AddTag(EStep step, DWORD tag, DWORD length, int syntax);
    static DWORD HeaderSize(const SStep& step) { return step.isLong ? kLongHeader : kShortHeader; }
    static void WriteHeader(const SStep& step, COutputBuffer& out);
    static void WriteValue(const SStep& step, COutputBuffer& out);

    static constexpr DWORD kLongHeader = 12; // Tag, VR, two reserved bytes, 32-bit length.
    static constexpr DWORD kShortHeader = 8; // Tag, VR, 16-bit length; or tag and 32-bit length.

    SStandardOutput m_output;
    std::vector<SStep> m_steps;
    std::unique_ptr<CDcmElement> m_transferSyntax; // Added to a set without one.
    std::uint64_t m_size = 0;
};
