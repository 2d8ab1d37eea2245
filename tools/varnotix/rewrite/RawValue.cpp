#include "rewrite/RawValue.h"

CByteArray EncodedValue(CDcmElement& element)
{
    constexpr int kHeader = 8; // Of implicit VR: tag and length.
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    element.SetSyntax(SYNTAX_IMPLICIT_LITTLE);
    element.Encode();
    element.Serialize(archive);
    archive.Close();
    CByteArray value;
    const int size = static_cast<int>(file.GetLength());
    if (size > kHeader)
    {
        value.Assign(file.GetBufferPtr() + kHeader, size - kHeader);
    }
    return value;
}

void EncodeRawValues(CDcmElementSet& set)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        if (element.Items() != nullptr)
        {
            EncodeRawValues(*element.Items());
        }
        else if (element.Frames() == nullptr && element.RawBytes().IsEmpty())
        {
            element.SetRawBytes(EncodedValue(element));
        }
    }
}
