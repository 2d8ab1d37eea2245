/// Objects in the DICOM JSON model (PS3.18 annex F).
#pragma once

#include "console/Console.h"
#include "console/Report.h"
#include "text/CharacterSet.h"

#include <span>

/// How objects are written.
struct SJsonForm
{
    bool isIndented = true;             ///< A line per attribute; otherwise a line per object.
    bool hasMeta = false;               ///< With group 0002, which the model leaves out.
    bool leavesOutBulk = false;         ///< Attributes with large values are left out.
    std::size_t inlineLimit = 1U << 20; ///< Values of more bytes are large.
};

/// Writes one object.
///
/// Large values of an object that was read from a file are replaced by a reference into that file (see BulkUri.h);
/// those from standard input are always whole, unless they are to be left out.
class CJsonWriter
{
public:
    /// @param path of the file that the object was read from; "-" for standard input.
    CJsonWriter(const SJsonForm& form, const CString& path, CConsole& console, const CReport& report);

    /// Prints the object, and reports what it could not carry over. Throws as CConsole::Print.
    void Write(const CDcmElementSet& store);

private:
    using CDataSet = std::span<const CDcmElement* const>;

    void WriteDataSet(CDataSet elements, const CCharacterSet& around);
    void WriteElement(const CDcmElement& element, const CCharacterSet& characters);
    void WriteItems(const CDcmElement& element, const CCharacterSet& characters);
    void WriteTexts(const CDcmElement& element, const std::string& vr, const CCharacterSet& characters);
    void WriteText(std::string_view value, const std::string& vr);
    void WriteName(std::string_view name);
    bool WriteNumbers(const CDcmElement& element, const std::string& vr);
    void WriteBytes(const CDcmElement& element);
    void WriteUri();
    bool IsLeftOut(const CDcmElement& element) const;
    void BeginLine(bool inside);
    void BeginValue(const char* name);
    void NoteReplaced(int count);
    void Print(std::size_t least);

    const SJsonForm& m_form;
    const CString& m_path;
    CConsole& m_console;
    const CReport& m_report;
    std::string m_json;               // What waits to be printed.
    std::vector<std::string> m_place; // The steps of the attribute's path.
    int m_replaced = 0;
    std::string m_firstReplaced;
    std::string m_unknownTerm;
};
