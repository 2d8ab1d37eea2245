/// The reader of the Attribute Script Language.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/modules/DcmAttributeModule.h"

struct SAslCommand;

/// Reads a script's lines: element lines go into a module, command lines are recorded.
///
/// A script asks its reader's user for things that the reader does not do itself: pixel data from files, anonymising,
/// removing, a file to write. CDcmCompositeIOD::CreateFromASL does the first two and merges as RemoveEmptyAll says; the
/// removal of groups, the anonymising of groups and the target file are left to the host.
///
/// Nothing is reported: what a line does not say rightly counts as 0, as empty or not at all. Notes tell afterwards.
class VARNOTIX_EXPORT CDcmAttributeScript : public CObject
{
    DECLARE_DYNCREATE(CDcmAttributeScript)

public:
    CDcmAttributeScript();
    CDcmAttributeScript(const CDcmAttributeScript& other);
    CDcmAttributeScript& operator=(const CDcmAttributeScript& other);
    ~CDcmAttributeScript() override;

    /// Reads lines from an index on, into the module. Texts are taken up to their first zero byte. Commands are added
    /// to those recorded before.
    /// @return the index of the line at which reading stopped: the number of lines, or that of a "#SEQUENCE_END"
    ///         outside every item. Nesting beyond 64 levels ends the reading too.
    int Run(const CStringArray& lines, CDcmAttributeModule& module, int first = 0);

    /// What the last run could not follow, in the order of the lines.
    const std::vector<SScriptNote>& Notes() const { return m_notes.All(); }

    // The recorded arguments. Paths are lower-cased. Of a command that takes one argument the last one holds.

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
    int ReadLines(const CStringArray& lines, CDcmAttributeModule& module, int index, int depth);
    int ReadElement(const CStringArray& lines, CDcmAttributeModule& module, int index, int depth);
    int ReadItem(const CStringArray& lines, CDcmElement& sequence, int index, int depth);
    void Record(const SAslCommand& command, int index);

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
    bool m_tooDeep = false;
};
