/// The value of the Pixel Data element: frames and the basic offset table.
#pragma once

#include "Varnotix/element/DcmFrame.h"
#include "Varnotix/element/DcmList.h"

#include <cstdint>

/// An ordered list of owned frames, with the basic offset table beside it (PS3.5 Annex A.4).
///
/// Two lists are equal when they have the same number of frames and each pair of frames has the same size. The bytes
/// are not compared: objects are compared often, and pixel data is their bulk.
class VARNOTIX_EXPORT CDcmFrameList : public CDcmList
{
    DECLARE_DYNAMIC(CDcmFrameList)

public:
    CDcmFrameList();
    /// Copies the offset table and every frame; the frames' bytes are copy-on-write.
    CDcmFrameList(const CDcmFrameList& other);
    CDcmFrameList& operator=(const CDcmFrameList& other);
    ~CDcmFrameList() override;

    bool operator==(const CDcmFrameList& other) const;
    bool operator!=(const CDcmFrameList& other) const { return !(*this == other); }

    /// Appends a frame, numbered with the count of frames before it.
    void AddFrame(const CSharedBytes& bytes);
    void AddFrame(const CByteArray& bytes);
    /// The words are stored as bytes, each word low byte first.
    void AddFrame(const CWordArray& words);

    /// Appends the bytes to the frame at a list position. Without such a position, a new frame is added at the
    /// tail: it carries the given number, whatever its position is.
    void SetFrame(int index, const CSharedBytes& bytes);
    void SetFrame(int index, const CByteArray& bytes);

    /// The frame at a list position, or null.
    CDcmFrame* GetFrame(int index) const { return static_cast<CDcmFrame*>(Body().At(index)); }

    /// Removes all frames, and the offset table, which gave their places.
    void RemoveAll();

    /// The basic offset table: little-endian 32-bit offsets as read from the first item of encapsulated pixel data. It
    /// is not checked; a table that does not fit the frames is written empty.
    void SetOffsetTable(const CByteArray& table) { m_offsetTable = table; }
    const CByteArray& OffsetTable() const { return m_offsetTable; }

    /// How a stream held the frames.
    enum EForm : BYTE
    {
        FORM_UNKNOWN = 0,     ///< Not read from a stream, or changed since.
        FORM_NATIVE = 1,      ///< One value, frames end to end.
        FORM_ENCAPSULATED = 2 ///< Items (PS3.5 section A.4).
    };
    /// The form in which a read met the frames; FORM_UNKNOWN once a frame was added, removed or handed out to be
    /// written to.
    EForm ReadForm() const;
    /// For decoders, when they have added all frames.
    void SetReadForm(EForm form) { m_readForm = form; }

    /// Sum of all frame sizes in bytes.
    std::uint64_t TotalSize() const;

    /// The counts and sizes that a text document gives of the pixel data, one text each.
    void Describe(CStringArray& texts) const;

    /// The description, each text in brackets.
    void Dump(CDumpContext& context) const override;

private:
    void CopyFramesInto(CDcmListBody& target) const;

    CByteArray m_offsetTable;
    EForm m_readForm = FORM_UNKNOWN;
};
