// How arrays of bytes and words become the frames of Pixel Data, and frames arrays.

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmFrameList.h"

#include <algorithm>

namespace
{

bool AllOfClass(const CObList& objects, const CRuntimeClass* runtimeClass)
{
    return std::all_of(objects.begin(), objects.end(),
                       [runtimeClass](const CObject* object)
                       { return object != nullptr && object->IsKindOf(runtimeClass); });
}

} // namespace

bool CDcmElement::SetFrames(const CObList& arrays)
{
    const bool bytes = AllOfClass(arrays, RUNTIME_CLASS(CByteArray));
    if (!HoldsFrames() || (!bytes && !AllOfClass(arrays, RUNTIME_CLASS(CWordArray))))
    {
        return false;
    }
    // The arrays may be this element's own, so the new frames are complete before the old ones go.
    CDcmFrameList frames;
    for (const CObject* array : arrays)
    {
        if (bytes)
        {
            frames.AddFrame(static_cast<const CByteArray&>(*array));
        }
        else
        {
            frames.AddFrame(static_cast<const CWordArray&>(*array));
        }
    }
    *m_frames = frames;
    ForcePixelVr(bytes ? VR_OB : VR_OW);
    return true;
}

bool CDcmElement::GetFrames(CObList& arrays)
{
    arrays.RemoveAll();
    if (!m_frames)
    {
        return false;
    }
    for (int i = 0; i < m_frames->GetCount(); ++i)
    {
        arrays.AddTail(&m_frames->GetFrame(i)->Array());
    }
    return true;
}
