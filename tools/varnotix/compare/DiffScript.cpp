#include "compare/DiffScript.h"

#include "compare/DiffText.h"
#include "compare/ObjectDiff.h"
#include "edit/ValueDecoder.h"
#include "object/Attributes.h"
#include "object/ElementMaker.h"
#include "rewrite/FileMeta.h"
#include "script/EditCommands.h"
#include "script/ScriptMerge.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

using EKind = SDifference::EKind;

constexpr std::size_t kLongestList = 256; // Bytes of a value that is written as numbers; longer ones are elements.

/// Whether a line of the text form carries the value: plain characters without those that divide a line.
bool IsPlainText(const CDcmElement& element)
{
    const CValueBytes bytes = element.ValueBytes();
    return VrKind(element.Vr()) == EVrKind::Text && bytes.Size() > 0 &&
           std::all_of(bytes.View().begin(), bytes.View().end(),
                       [](char c)
                       { return c >= ' ' && c <= '~' && std::string_view(",[]").find(c) == std::string_view::npos; });
}

/// Whether a command line carries the text as it is.
bool FitsInLine(const std::string& text)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    return std::none_of(text.begin(), text.end(), isControl) && TrimBlanks(text).size() == text.size();
}

class CScriptMaker
{
public:
    /// @param hasElementLines otherwise all lines are commands.
    CScriptMaker(const CString& transferSyntax, bool hasElementLines)
        : m_transferSyntax(transferSyntax), m_hasElementLines(hasElementLines)
    {
    }

    void Add(const SDifference& difference);
    /// Items that go are numbered as before the script; so the last ones go first.
    void TakeLines(CStringArray& lines);

private:
    void AddRight(const CElementPath& path, const CDcmElement& element, const CCharacterSet& characters);
    void AddItem(const CElementPath& path, const CDcmElementSet& items, const CCharacterSet& characters);
    void Set(const CElementPath& path, const CDcmElement& element, const CCharacterSet& characters);
    void AddCommand(const char* command, const CString& argument)
    {
        m_lines.Add(CString("#") + command + "=" + argument);
    }

    CString m_transferSyntax;
    bool m_hasElementLines;
    CStringArray m_lines;
    std::vector<CString> m_removed;
};

void CScriptMaker::Add(const SDifference& difference)
{
    const CElementPath& path = difference.path;
    if (path.Steps().front().tag == Tag::kTransferSyntaxUid && difference.right != nullptr)
    {
        AddCommand(kTransferSyntaxCommand, m_transferSyntax);
        return;
    }
    switch (difference.kind)
    {
    case EKind::OnlyLeft:
        m_removed.push_back(PathText(path));
        break;
    case EKind::OnlyRight:
        if (path.Steps().back().item > 0)
        {
            AddItem(path, *difference.right->Items(), *difference.rightCharacters);
        }
        else
        {
            AddRight(path, *difference.right, *difference.rightCharacters);
        }
        break;
    case EKind::Vr:
    case EKind::Frames:
        Set(path, *difference.right, *difference.rightCharacters);
        break;
    case EKind::Value:
        if (m_hasElementLines && path.Steps().size() == 1 && IsPlainText(*difference.right))
        {
            m_lines.Add(AslElementLine(*difference.right));
        }
        else
        {
            Set(path, *difference.right, *difference.rightCharacters);
        }
        break;
    }
}

void CScriptMaker::AddRight(const CElementPath& path, const CDcmElement& element, const CCharacterSet& characters)
{
    if (Tag::IsGroupLength(element.Tag()))
    {
        return;
    }
    const CDcmElementSet* items = element.Items();
    const bool isSequence = items != nullptr && std::string_view(element.VrLetters()) == "SQ";
    if (!isSequence)
    {
        const bool isListed = ListedVr(element.Tag(), false) == element.VrLetters();
        if (m_hasElementLines && path.Steps().size() == 1 && isListed && IsPlainText(element))
        {
            m_lines.Add(AslElementLine(element));
            return;
        }
        Set(path, element, characters);
        return;
    }
    if (items->ItemCount() == 0)
    {
        AddCommand(kSetCommand, PathText(path) + ":SQ=");
    }
    CElementPath item = path;
    for (int i = 1; i <= items->ItemCount(); ++i)
    {
        item.SelectItem(i);
        AddItem(item, *items, characters);
    }
}

/// @param path ends in the item.
void CScriptMaker::AddItem(const CElementPath& path, const CDcmElementSet& items, const CCharacterSet& characters)
{
    const int item = path.Steps().back().item;
    const CCharacterSet own = CCharacterSet::Of(items, item, characters);
    AddCommand(kSetCommand, PathText(path) + "=");
    CObList elements;
    items.GetItem(item, elements);
    for (const CObject* object : elements)
    {
        const auto& element = static_cast<const CDcmElement&>(*object);
        CElementPath inner = path;
        inner.Append({element.Tag(), CString(), SPathStep::kNoItem});
        AddRight(inner, element, own);
    }
}

void CScriptMaker::Set(const CElementPath& path, const CDcmElement& element, const CCharacterSet& characters)
{
    const CString vr = element.VrLetters();
    const CValueBytes bytes = element.ValueBytes();
    const bool isText = VrKind(element.Vr()) == EVrKind::Text;
    constexpr int kPixelGroup = 0x7FE0; // Nothing of it is set from text.
    if (element.Items() == nullptr && Tag::Group(element.Tag()) != kPixelGroup && element.Frames() == nullptr &&
        (isText || bytes.Size() <= kLongestList))
    {
        const std::optional<std::string> text = DecodeValue(bytes.View(), vr.View(), characters);
        if (text && FitsInLine(*text))
        {
            AddCommand(kSetCommand, PathText(path) + ":" + vr + "=" + CString(std::string_view(*text)));
            return;
        }
    }
    AddCommand(kElementCommand, PathText(path) + "=" + ElementArgument(element, m_transferSyntax));
}

void CScriptMaker::TakeLines(CStringArray& lines)
{
    for (auto path = m_removed.rbegin(); path != m_removed.rend(); ++path)
    {
        lines.Add(CString("#") + kRemoveCommand + "=" + *path);
    }
    for (const CString& line : m_lines)
    {
        lines.Add(line);
    }
}

/// Follows the script in a copy of the left object.
/// @return empty, or what would be wrong with the result.
CString Try(const CStringArray& lines, const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored,
            bool vrsCount)
{
    CDcmIOD made(left);
    const CScriptMerge merge(lines, made);
    const CEditCommands commands(lines, merge.Commands(), made.ElementStore());
    for (const std::vector<SScriptFault>& faults : {merge.Faults(), commands.Faults()})
    {
        if (!faults.empty())
        {
            return CString(lines[faults.front().line].View().substr(0, 60)) + ": " + faults.front().what;
        }
    }
    if (!commands.TransferSyntax().IsEmpty())
    {
        SetText(made.ElementStore(), Tag::kTransferSyntaxUid, commands.TransferSyntax().View(), '\0');
    }
    const CString mismatch =
        PixelDataMismatch(made.ElementStore(), TextOf(made.ElementStore(), Tag::kTransferSyntaxUid));
    if (!mismatch.IsEmpty())
    {
        return mismatch;
    }
    const std::vector<SDifference> rest = CompareObjects(made, right, ignored, EAlignment::ByIndex, vrsCount);
    return rest.empty() ? CString() : PathText(rest.front().path) + " would still differ";
}

} // namespace

SDiffScript MakeDiffScript(const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored)
{
    SDiffScript script;
    const SObjectForm leftForm = FormOf(left);
    const SObjectForm rightForm = FormOf(right);
    if (leftForm.isBare != rightForm.isBare || leftForm.hasMeta != rightForm.hasMeta)
    {
        script.reason = "only one of the files has file meta information, and a script cannot change that";
        return script;
    }
    if (leftForm.isDirectory)
    {
        script.reason = "the first is a DICOMDIR, whose file offsets a script would make wrong";
        return script;
    }
    // What is written in implicit VR does not state VRs, and what was read so does not either.
    const bool keepsSyntax = leftForm.isBare || ignored.Has(CElementPath(Tag::kTransferSyntaxUid), CString());
    const bool vrsCount =
        rightForm.syntax != SYNTAX_IMPLICIT_LITTLE && (!keepsSyntax || leftForm.syntax != SYNTAX_IMPLICIT_LITTLE);
    const std::vector<SDifference> differences = CompareObjects(left, right, ignored, EAlignment::ByIndex, vrsCount);
    for (const bool hasElementLines : {true, false})
    {
        script.lines.RemoveAll();
        CScriptMaker maker(rightForm.transferSyntax, hasElementLines);
        std::for_each(differences.begin(), differences.end(), [&](const SDifference& one) { maker.Add(one); });
        maker.TakeLines(script.lines);
        script.reason = Try(script.lines, left, right, ignored, vrsCount);
        if (script.reason.IsEmpty())
        {
            return script;
        }
    }
    script.lines.RemoveAll();
    return script;
}
