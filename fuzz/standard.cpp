// Any bytes as a stored object under the standard stream rules: read, copied and written in every syntax.

#include "Objects.h"

namespace
{

CDcmIOD ReadByStandard(const CByteArray& bytes)
{
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Import(bytes);
    return object;
}

int CountItems(const CDcmElementSet& set)
{
    int count = 0;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        if (const CDcmElementSet* items = set.GetAt(i)->Items())
        {
            count += items->ItemCount() + CountItems(*items);
        }
    }
    return count;
}

bool HasSequences(const CDcmElementSet& set)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        if (set.GetAt(i)->Items() != nullptr)
        {
            return true;
        }
    }
    return false;
}

/// What keeps a second reading from giving the same object: group 0200, which looks like group 0002 in big endian, and
/// a value of another VR under the tag of a sequence, which implicit VR gives its VR back.
bool CanReadOtherwise(const CDcmElementSet& set)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(element.Tag());
        const CDcmElementSet* items = element.Items();
        const bool isHidden = items == nullptr && entry != nullptr && entry->vr == VR_SQ;
        if (element.Group() == 0x0200 || isHidden || (items != nullptr && CanReadOtherwise(*items)))
        {
            return true;
        }
    }
    return false;
}

/// What an object is written as is read as the same object: it is written as the same bytes again.
void PromiseFixedPoint(const CDcmIOD& object, const char* uid)
{
    CDcmIOD first(InSyntax(object, uid));
    if (CanReadOtherwise(first.ElementStore()))
    {
        return;
    }
    CByteArray written;
    first.ExportFileFormat(written);
    CDcmIOD second = ReadByStandard(written);
    const bool foundOther = std::any_of(second.ReadNotes().begin(), second.ReadNotes().end(),
                                        [](const SReadNote& note) { return note.note == READ_OTHER_SYNTAX; });
    if (foundOther)
    {
        return; // A data set of few and odd elements can speak for another syntax.
    }
    Promise(!second.ReadStopped(), "what was written is read whole");
    Promise(second.GetCountAll() >= first.GetCountAll(), "no element is lost");
    Promise(CountItems(second.ElementStore()) == CountItems(first.ElementStore()), "no item is lost");
    CByteArray rewritten;
    second.ExportFileFormat(rewritten);
    Promise(Same(written, rewritten), "what was written is read and written as the same bytes");
}

/// Of a conforming stream without sequences, both rules read the same values.
void PromiseBothRulesAgree(const CDcmIOD& standard, const CByteArray& stream)
{
    CDcmIOD classic;
    classic.Import(stream);
    const CDcmElementSet& mine = standard.ElementStore();
    const CDcmElementSet& theirs = classic.ElementStore();
    if (!standard.ReadNotes().empty() || !classic.ReadNotes().empty() || classic.IodSyntax() != standard.IodSyntax() ||
        HasSequences(mine) || HasSequences(theirs))
    {
        return;
    }
    Promise(mine.GetCount() == theirs.GetCount(), "both rules read as many elements");
    for (int i = 0; i < mine.GetCount(); ++i)
    {
        const CDcmElement& one = *mine.GetAt(i);
        const CDcmElement& other = *theirs.GetAt(i);
        Promise(one.Tag() == other.Tag(), "both rules read the same tags");
        Promise(one.Frames() != nullptr || one.RawBytes().SameBytes(other.RawBytes()),
                "both rules read the same values");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SFreshDictionary fresh;
    const CByteArray stream = ToArray(data, size);
    const CDcmIOD object = ReadByStandard(stream);
    Promise(object.GetCountAll() <= stream.GetSize() / kShortestElement, "elements are no more than the stream holds");
    Promise(CountItems(object.ElementStore()) <= stream.GetSize() / kShortestElement,
            "items are no more than the stream holds");
    if (object.GetCount() == 0)
    {
        return 0;
    }
    PromiseBothRulesAgree(object, stream);
    const CDcmIOD copy(object);
    for (const char* uid : kSyntaxUids)
    {
        PromiseFixedPoint(copy, uid);
    }
    CDcmIOD asked(object);
    AskForValues(asked.ElementStore());
    CStringArray lines;
    asked.Export(lines);
    asked.GroupLengths(true);
    CByteArray file;
    asked.ExportFileFormat(file);
    return 0;
}
