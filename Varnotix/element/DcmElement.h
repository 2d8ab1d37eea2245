/// The working data element: one attribute of a data set with its value in every form the library needs.
#pragma once

#include "Varnotix/element/BlockObject.h"
#include "Varnotix/element/DmElement.h"
#include "Varnotix/element/SharedBytes.h"
#include "Varnotix/element/ValueBytes.h"
#include "Varnotix/platform/Lists.h"
#include "Varnotix/registry/DcmEntry.h"
#include "Varnotix/registry/Tag.h"

#include <memory>

class CDcmElementSet;
class CDcmFrameList;
struct STypedValue;

/// Transfer syntax codes of element encodings. Every encapsulated syntax is carried as explicit VR little endian.
enum ESyntax : int
{
    SYNTAX_UNKNOWN = -1,
    SYNTAX_IMPLICIT_LITTLE = 1,
    SYNTAX_EXPLICIT_LITTLE = 2,
    SYNTAX_EXPLICIT_BIG = 4
};

/// A data element (PS3.5 section 7.1): tag, VR, VM and value.
///
/// The value lives in two forms: the raw value bytes as read or last set, and the typed values (texts, words, ...)
/// of the element's VR. Typed values are built from the raw bytes on first access; until then an
/// element that was read costs no more than its bytes. Typed setters leave the raw bytes as they are.
///
/// A sequence element owns an item set, which may share its elements with a module's member sequence. Pixel Data
/// (7FE0,0010) owns a frame list.
///
/// An element whose tag the dictionary does not know has no entry: it keeps raw bytes, takes no typed value and is not
/// encoded. No operation throws for a bad value; setters return false and change nothing.
class VARNOTIX_EXPORT CDcmElement : public CObject, public CBlockObject
{
    DECLARE_DYNCREATE(CDcmElement)

public:
    /// Tag (0000,0000) without entry.
    CDcmElement();

    /// An empty element of a tag; VR, VM and name are those of the dictionary.
    CDcmElement(int group, int element);

    /// As above.
    explicit CDcmElement(DWORD tag);

    /// As above, with the VR forced to a code, also for a tag that the dictionary lacks. A number that is not a code
    /// gives VR_UNKNOWN.
    CDcmElement(int group, int element, int vr);

    /// As the first form; the texts are read as hexadecimal ("0010", "00E0"). A text that is not a number counts as 0.
    CDcmElement(const CString& group, const CString& element);

    /// As the first form, with the value set from little-endian bytes (see SetRawBytes).
    CDcmElement(int group, int element, const CByteArray& value);

    /// For callers that have looked the tag up already.
    CDcmElement(int group, int element, int vr, const CDcmEntry* entry);

    /// Copies the items; raw bytes and frames are copy-on-write.
    CDcmElement(const CDcmElement& other);

    /// Takes over the read flag and the raw bytes, and the typed value when both VRs are equal. Items are taken only
    /// from an element of the same tag. Pixel Data takes the VR and frames of other Pixel Data. Tag, name, VM and
    /// entry stay.
    CDcmElement& operator=(const CDcmElement& other);

    ~CDcmElement() override;

    /// Equal tags, VR codes and typed values. Raw bytes and encoded forms are not compared. Texts compare up to their
    /// first zero byte, so a padded UID equals its unpadded form. Frame lists compare by frame sizes.
    bool operator==(const CDcmElement& other) const;
    bool operator!=(const CDcmElement& other) const { return !(*this == other); }

    int Group() const { return m_group; }
    int Element() const { return m_element; }
    /// Group and element in one number, group in the high half: tags order as these numbers do.
    DWORD Tag() const { return Varnotix::Tag::Make(m_group, m_element); }
    int Vr() const { return m_vr; }
    /// The VR where Vr() is only the code of the VR that holds its values; otherwise None.
    Varnotix::ELaterVr LaterVr() const { return m_laterVr; }
    /// Makes the element one of a later VR; Vr() becomes the code that holds its values. For None nothing changes.
    void SetLaterVr(Varnotix::ELaterVr vr);
    /// The two letters that explicit streams have for the element by the standard stream rules; empty for VR_NONE and
    /// codes without a name.
    const char* VrLetters() const;
    /// Value multiplicity of the dictionary: -1 one or more without bound, 0 no value.
    int Vm() const { return m_entry != nullptr ? m_entry->multiplicity : 0; }
    const CDcmEntry* Entry() const { return m_entry; }
    /// Four lower-case hexadecimal digits.
    CString GroupText() const;
    CString ElementText() const;
    CString VrName() const { return CString(Varnotix::VrText(m_vr)); }
    /// The attribute's name in the dictionary; empty without entry.
    CString Name() const { return m_entry != nullptr ? m_entry->name : CString(); }

    /// True for an element that a stream decoder made.
    bool IsRead() const { return m_read; }
    void SetRead() { m_read = true; }
    bool HasVr(int vr) const { return m_vr == vr; }
    bool HasGroup(int group) const { return m_group == group; }
    bool HasTag(int group, int element) const { return m_group == group && m_element == element; }
    bool HasTag(DWORD tag) const { return Tag() == tag; }
    bool HasEntry() const { return m_entry != nullptr; }
    bool IsPixelData() const { return HasTag(Varnotix::Tag::kPixelData); }

    /// Number of the item that the element belongs to in the set of its sequence, counted from 1; 0 for none. Elements
    /// without an item count to the first one.
    int Item() const { return static_cast<int>(m_item); }
    /// Moves the element to an item; see CDcmElementSet::BeginItem for how items come to be.
    /// @param item a negative number counts as 0.
    void SetItem(int item) { m_item = item > 0 ? static_cast<DWORD>(item) : 0; }

    /// How a sequence element gives its length and its VR in a stream (PS3.5 section 7.5). The standard stream rules
    /// keep it from a read to a write.
    enum EForm : BYTE
    {
        FORM_DEFINED = 0,   ///< Length in bytes.
        FORM_UNDEFINED = 1, ///< Undefined length, ended by a delimiter.
        FORM_UNKNOWN = 2    ///< VR UN and undefined length; the items are in implicit VR (PS3.5 section 6.2.2).
    };
    EForm Form() const { return m_form; }
    void SetForm(EForm form) { m_form = form; }

    /// Makes a US element SS, or an SS element US; the value's bytes stay. Nothing happens for other VRs.
    void SetSigned(bool isSigned);

    /// Makes Pixel Data OB or OW. Nothing happens for other elements and other codes.
    void ForcePixelVr(int vr);

    /// Copies read flag, group, element, VR, VM, name and VR text into the record. Then, when the record is raw, the
    /// record's bytes become the element's raw bytes; otherwise the element's typed value is rebuilt from the record's
    /// bytes, and the raw bytes stay.
    void Exchange(CDmElement& record);

    /// @name Raw bytes
    /// The value as it is in a stream of little endian syntax.
    /// @{

    /// Sets the value from little-endian bytes; an empty array changes nothing. Text is split at backslashes unless
    /// the VM is 1; a partial last number is dropped.
    void SetRawBytes(const CByteArray& bytes);
    void SetRawBytes(CSharedBytes bytes);
    const CSharedBytes& RawBytes() const { return m_raw; }

    /// @}
    /// @name Typed setters
    /// Each returns true when the element took the value: it has an entry, its VR holds this kind of value and its VM
    /// allows it. A single value is appended when the VM is -1, replaces the value when it is 1, and is appended when
    /// it is n > 1 while there are not more than n values, so that n+1 values can gather.
    /// @{

    /// An empty text clears an element of VM 1 and is not stored otherwise.
    bool AddText(const CString& text);
    /// Empties the texts and adds each; the result is that of the last one.
    bool SetTexts(const CStringArray& texts);
    /// AT, SS and US. With a VM of 0 one value is still taken.
    bool AddWord(WORD value);
    /// AT, SS, US, OW, OB (low byte first), SL and UL (widened). Pixel Data takes the words as one more frame, low byte
    /// first, and becomes OW.
    bool SetWords(const CWordArray& values);
    /// SL and UL; AT, SS and US take the low 16 bits; OB takes the four bytes, lowest first.
    bool AddInteger(DWORD value);
    /// SL and UL; AT, SS and US take the low 16 bits of each.
    bool SetIntegers(const CUIntArray& values);
    /// FL only.
    bool AddFloat(float value);
    /// FL and OF.
    bool SetFloats(const CFloatArray& values);
    /// FD only.
    bool AddDouble(double value);
    bool SetDoubles(const CDoubleArray& values);
    /// OB and OW outside Pixel Data keep the bytes; OB Pixel Data takes them as one more frame; OW Pixel Data refuses.
    bool SetBytes(const CByteArray& bytes);
    /// SQ: the items become a copy of the given set's elements. A member sequence that shares them shows the copy.
    bool SetItems(const CDcmElementSet& items);

    /// Pixel Data of VR OB or OW: replaces all frames by one frame for each array, numbered from 0. All arrays must be
    /// CByteArray, which makes the VR OB, or all CWordArray, which makes it OW; otherwise nothing changes. An empty
    /// list counts as bytes.
    bool SetFrames(const CObList& arrays);
    /// Pixel Data: fills the list with the frames' byte arrays, which stay owned by the element and valid until the
    /// pixel data changes. False, and the list left empty, for any other element.
    bool GetFrames(CObList& arrays);

    /// @}
    /// @name Typed values
    /// Null when the VR does not hold that kind, or the element has no entry.
    /// @{

    CStringArray* Texts();
    CWordArray* Words();
    CUIntArray* Integers();
    CFloatArray* Floats();
    CDoubleArray* Doubles();
    /// The bytes of OB. For OW the bytes handed in by SetBytes, which are kept beside the words and not encoded.
    CByteArray* Bytes();
    CDcmElementSet* Items() { return m_items.get(); }
    CDcmFrameList* Frames() { return m_frames.get(); }
    const CStringArray* Texts() const { return const_cast<CDcmElement*>(this)->Texts(); }
    const CWordArray* Words() const { return const_cast<CDcmElement*>(this)->Words(); }
    const CUIntArray* Integers() const { return const_cast<CDcmElement*>(this)->Integers(); }
    const CFloatArray* Floats() const { return const_cast<CDcmElement*>(this)->Floats(); }
    const CDoubleArray* Doubles() const { return const_cast<CDcmElement*>(this)->Doubles(); }
    const CByteArray* Bytes() const { return const_cast<CDcmElement*>(this)->Bytes(); }
    const CDcmElementSet* Items() const { return m_items.get(); }
    const CDcmFrameList* Frames() const { return m_frames.get(); }

    /// @}

    /// The value as the little-endian bytes that a write by the standard stream rules has, before padding: the raw
    /// bytes as long as the typed value is what they were read as, otherwise the typed value. Empty for sequences and
    /// for Pixel Data with frames.
    CValueBytes ValueBytes() const { return m_valueFromRaw ? CValueBytes(m_raw.Text()) : BuiltValueBytes(); }

    /// The texts joined by one backslash between neighbours; empty for other VRs.
    CString JoinedText() const;

    /// True when the value's array is empty, every text is empty, Pixel Data has no frames, or every item element is
    /// empty. An element without entry, of VR UN or of a VR without name never counts as empty.
    bool IsEmptyValue() const;

    /// Empties the value; tag, VR and raw bytes stay. The elements of a sequence's items are emptied and stay.
    void EmptyValue();

    /// SQ: replaces the items by copies of the non-empty ones, at every depth; nothing changes when none would stay.
    void PruneEmptyItems();

    /// @name Encoding
    /// An element remembers the length and syntax of its last encoding; its encoded bytes are made when they are
    /// written, so that no value is held twice.
    /// @{

    /// The transfer syntax in which the element is to be encoded; implicit VR little endian at first. The code is not
    /// checked: what is encoded in any other than the three of ESyntax cannot be read.
    int Syntax() const { return m_syntax; }
    void SetSyntax(int syntax) { m_syntax = syntax; }

    /// Encodes the element in its syntax: drops empty texts, sorts items, fixes the length. Nothing happens without
    /// an entry.
    void Encode();

    /// Size in bytes of header and value as last encoded; 0 before.
    DWORD EncodedSize() const;
    /// Size in bytes of the value field as last encoded; 0 before.
    DWORD EncodedValueSize() const { return m_encodedValueSize; }

    /// Writes the encoded element; an element that was never encoded writes nothing. Loading is not supported: nothing
    /// is read.
    void Serialize(CArchive& archive) override;
    /// @}

    /// Diagnostic text: tag, VM, VR, name, encoded size and values, each in brackets.
    void Dump(CDumpContext& context) const override;

private:
    friend class CElementBlocks;
    friend class CElementBody;
    friend class CElementEncoder;

    /// An SQ element with these items.
    CDcmElement(DWORD tag, const CDcmEntry* entry, std::unique_ptr<CDcmElementSet> items);

    /// An element that a decoder has read, neither a sequence nor Pixel Data.
    CDcmElement(DWORD tag, int vr, Varnotix::ELaterVr laterVr, const CDcmEntry* entry, CSharedBytes&& raw);

    void CreateOwned();
    bool TakesValue(EVrKind kind) const { return m_entry != nullptr && Varnotix::VrKind(m_vr) == kind; }
    bool HoldsFrames() const { return m_frames != nullptr && (m_vr == VR_OB || m_vr == VR_OW); }
    void BuildValue() const;
    CValueBytes BuiltValueBytes() const;
    void DropValues();
    void BuildFrom(const CSharedBytes& raw) const;
    STypedValue& Typed() const;
    template <class ARRAY>
    ARRAY* ValuesOf(EVrKind kind) const;
    template <class ARRAY, class VALUE>
    bool AddNumber(ARRAY& values, VALUE value);

    static constexpr signed char kNeverEncoded = 0;
    static constexpr signed char kOtherSyntax = -1; // Encoded in a syntax that is not one of ESyntax.

    /// The current syntax in the form of m_encodedSyntax.
    signed char SyntaxToEncode() const;

    const CDcmEntry* m_entry = nullptr;
    WORD m_group = 0;
    WORD m_element = 0;
    BYTE m_vr = VR_UNKNOWN;
    signed char m_encodedSyntax = kNeverEncoded;
    bool m_read = false;
    Varnotix::ELaterVr m_laterVr = Varnotix::ELaterVr::None;
    EForm m_form = FORM_DEFINED;
    mutable bool m_valueFromRaw = false; // The typed value is not built from the raw bytes yet.
    int m_syntax = SYNTAX_IMPLICIT_LITTLE;
    DWORD m_encodedValueSize = 0;
    DWORD m_item = 0;
    CSharedBytes m_raw;
    mutable std::unique_ptr<STypedValue> m_typed;
    std::unique_ptr<CDcmElementSet> m_items;
    std::unique_ptr<CDcmFrameList> m_frames;
};
