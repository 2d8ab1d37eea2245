#include "script/EditCommands.h"

#include "json/Base64.h"
#include "object/Attributes.h"

using namespace Varnotix;

namespace
{

CDcmElement* ReadElement(const CSharedBytes& bytes, DWORD tag, CDcmIOD& object)
{
    CMemFile file;
    file.Write(bytes.Data(), static_cast<UINT>(bytes.Size()));
    file.Seek(0, CFile::begin);
    CArchive archive(&file, CArchive::load);
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Serialize(archive);
    return object.ReadStopped() ? nullptr : object.ElementStore().Find(tag);
}

} // namespace

CEditCommands::CEditCommands(const CStringArray& lines, const std::vector<int>& commands, CDcmElementSet& store)
{
    CObjectEdit edit(store, true);
    for (const int line : commands)
    {
        const std::size_t before = edit.Faults().size();
        m_fault.Empty();
        if (!Follow(SplitAslCommand(TrimBlanks(lines[line].CText())), edit))
        {
            m_others.push_back(line);
            continue;
        }
        ++m_count;
        if (edit.Faults().size() > before)
        {
            m_fault = edit.Faults().back();
        }
        if (!m_fault.IsEmpty())
        {
            m_faults.push_back({line, m_fault});
        }
    }
}

/// @return false for another command.
bool CEditCommands::Follow(const SAslCommand& command, CObjectEdit& edit)
{
    if (EqualNoCase(command.keyword, kRemoveCommand))
    {
        const std::optional<CElementPath> path = CElementPath::Parse(command.argument);
        if (path)
        {
            edit.Delete({*path, std::nullopt});
        }
        m_fault = path ? "" : "there is no path after the command";
    }
    else if (EqualNoCase(command.keyword, kSetCommand))
    {
        SAssignment assignment;
        const bool isOne = ReadAssignment(command.argument, assignment) == EArgument::Assignment;
        if (isOne)
        {
            edit.Assign(assignment);
        }
        m_fault = isOne ? "" : "there is no PATH=VALUE after the command";
    }
    else if (EqualNoCase(command.keyword, kElementCommand))
    {
        m_fault = PlaceElement(command.argument, edit);
    }
    else if (EqualNoCase(command.keyword, kTransferSyntaxCommand))
    {
        m_transferSyntax = CString(command.argument);
        m_fault = SyntaxOfUid(m_transferSyntax) != SYNTAX_UNKNOWN ? "" : "there is no such transfer syntax";
    }
    else
    {
        return false;
    }
    return true;
}

CString CEditCommands::PlaceElement(std::string_view argument, CObjectEdit& edit)
{
    SAssignment assignment;
    if (ReadAssignment(argument, assignment) != EArgument::Assignment)
    {
        return "there is no PATH=BASE64 after the command";
    }
    const std::optional<CSharedBytes> bytes = DecodeBase64(assignment.value.View());
    CDcmIOD object;
    const CDcmElement* element = bytes ? ReadElement(*bytes, assignment.path.Steps().back().tag, object) : nullptr;
    if (element == nullptr)
    {
        return "there is no element in the bytes";
    }
    edit.Place(assignment.path, *element);
    return CString();
}

CString ElementArgument(const CDcmElement& element, const CString& transferSyntax)
{
    const CDcmFrameList* frames = element.Frames();
    const bool isPacked = frames != nullptr && frames->ReadForm() == CDcmFrameList::FORM_ENCAPSULATED;
    const CString uid = isPacked ? transferSyntax : CDcmRegistry::Global().UidString(SYNTAX_EXPLICIT_LITTLE);
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.FileFormat(true);
    SetText(object.ElementStore(), Tag::kTransferSyntaxUid, uid.View(), '\0');
    // A single element before a value of zeros could be taken for one of another transfer syntax.
    const bool isModality = element.Tag() == Tag::kModality;
    SetText(object.ElementStore(), isModality ? Tag::kPatientId : Tag::kModality, "OT", ' ');
    if (isPacked && frames->GetCount() > 1)
    {
        // Without it, fragments without an offset table are read as one frame.
        CString count;
        count.Format("%d", frames->GetCount());
        SetText(object.ElementStore(), Tag::kNumberOfFrames, count.View(), ' ');
    }
    auto copy = std::make_unique<CDcmElement>(element);
    copy->SetItem(0);
    object.ElementStore().Add(copy.release());
    object.IodSyntax(uid);
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    CBase64Encoder encoder;
    std::string text;
    encoder.Append({reinterpret_cast<const char*>(file.GetBufferPtr()), static_cast<std::size_t>(file.GetLength())},
                   text);
    encoder.Finish(text);
    return CString(std::string_view(text));
}
