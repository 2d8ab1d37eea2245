/// The reader of the Attribute Script Language.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/codec/StreamRules.h"
#include "Varnotix/modules/DcmAttributeModule.h"

class CScriptItems;

namespace Varnotix
{
class CAslReader;
struct SAslCommand;
struct SAslEvent;
} // namespace Varnotix

/// Reads a script's lines: element lines go into a module, command lines are recorded.
///
/// The commands are recorded for the caller, not executed: pixel data from files, anonymisation, removal, a file to
/// write. CDcmCompositeIOD::CreateFromASL takes the pixel data, anonymises, and merges as RemoveEmptyAll says; removing
/// groups, anonymising groups and the target file are left to the host.
///
/// Bad lines are not errors: a malformed number counts as 0, other bad lines have less effect or none. Notes says
/// which.
class VARNOTIX_EXPORT CDcmAttributeScript : public CObject
{
    DECLARE_DYNCREATE(CDcmAttributeScript)

public:
    CDcmAttributeScript();
    CDcmAttributeScript(const CDcmAttributeScript& other);
    CDcmAttributeScript& operator=(const CDcmAttributeScript& other);
    ~CDcmAttributeScript() override;

    /// Reads lines from an index on, into the module. Texts are taken up to their first zero byte. Commands are added
    /// to those recorded before. A line whose VR field is SQ opens a sequence together with the line after it, whatever
    /// VR the dictionary gives the tag; where that is not SQ, the lines of the sequence are read and dropped.
    /// @return the index of the line at which reading stopped: the number of lines, or that of a "#SEQUENCE_END"
    ///         outside every item. Nesting beyond 64 levels ends the reading too.
    int Run(const CStringArray& lines, CDcmAttributeModule& module, int first = 0);

    /// By the standard rules a run keeps the items of sequences: "#ITEM=n" begins item n, and a sequence without such
    /// marks is one item, or none where it has no elements. Items are marked in order, from 1 on; elements before the
    /// first mark are item 1. By the classic rules, the default, the command is unknown and all elements of a sequence
    /// are one set.
    EStreamRules StreamRules() const { return m_streamRules; }
    void StreamRules(EStreamRules rules) { m_streamRules = rules; }

    /// What the last run could not follow, in the order of the lines.
    const std::vector<SScriptNote>& Notes() const { return m_notes.All(); }

    // The recorded arguments. Paths are lower-cased. Where a command takes one argument, the last line counts.

    const CString& SourceFile() const { return m_sourceFile; }
    const CString& TargetFile() const { return m_targetFile; }
    const CString& RowsText() const { return m_rowsText; }
    const CString& ColsText() const { return m_colsText; }
    const CStringArray& PixelDataFiles() const { return m_pixelDataFiles; }
    const CStringArray& PixelDataDirectories() const { return m_pixelDataDirectories; }
    const CString& RemoveEmptyAll() const { return m_removeEmptyAll; }
    const CStringArray& RemoveEmptyGroups() const { return m_removeEmptyGroups; }
    /// Whether to anonymise: a number, 1 for yes.
    const CString& Anonymize55First() const { return m_anonymize55First; }
    /// The replacement text.
    const CString& Anonymize55Second() const { return m_anonymize55Second; }
    const CStringArray& RemoveGroups() const { return m_removeGroups; }
    const CStringArray& AnonymizeGroups() const { return m_anonymizeGroups; }

private:
    void ReadSet(Varnotix::CAslReader& reader, CDcmAttributeModule& module, CScriptItems* items, int depth);
    CDcmElement* ReadElement(const Varnotix::SAslEvent& event, CDcmAttributeModule& module);
    void ReadSequence(Varnotix::CAslReader& reader, int begin, CDcmElement* element, int depth);
    CDcmAttributeModule& ReadCommand(const Varnotix::SAslEvent& event, CDcmAttributeModule& module,
                                     CScriptItems* items);
    bool Record(const Varnotix::SAslCommand& command);

    EStreamRules m_streamRules = STREAM_RULES_CLASSIC;
    CString m_sourceFile;
    CString m_targetFile;
    CString m_rowsText;
    CString m_colsText;
    CStringArray m_pixelDataFiles;
    CStringArray m_pixelDataDirectories;
    CString m_removeEmptyAll;
    CStringArray m_removeEmptyGroups;
    CString m_anonymize55First;
    CString m_anonymize55Second;
    CStringArray m_removeGroups;
    CStringArray m_anonymizeGroups;
    CScriptNotes m_notes;
};
