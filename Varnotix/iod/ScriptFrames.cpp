#include "Varnotix/iod/ScriptFrames.h"

#include "Varnotix/iod/DcmCompositeIOD.h"
#include "Varnotix/iod/DcmMetaFileInformation.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/FileSearch.h"
#include "Varnotix/platform/PictureSize.h"
#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/UidRow.h"
#include "Varnotix/script/DcmAttributeScript.h"

#include <algorithm>
#include <iterator>

using namespace Varnotix;

namespace
{

/// True for the transfer syntaxes whose frames are taken as they are: all encapsulated ones but RLE.
bool GivesFrames(int uidRow)
{
    return IsEncapsulated(uidRow) && uidRow != UID_RLE;
}

bool IsAscii(const CString& text)
{
    return std::all_of(text.View().begin(), text.View().end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

/// Appends what a pattern finds. The first name comes without its folder, for compatibility with existing scripts.
bool FindSources(const CString& pattern, CStringArray& names)
{
    CStringArray found;
    if (!FindFiles(pattern, found))
    {
        return false;
    }
    const int separator = std::max(pattern.ReverseFind('\\'), pattern.ReverseFind('/'));
    const CString folder = pattern.Left(separator);
    for (int i = 0; i < found.GetSize(); ++i)
    {
        names.Add(i == 0 || separator < 0 ? found[i] : folder + '\\' + found[i]);
    }
    return true;
}

} // namespace

const char* Varnotix::ScriptSourceText(EScriptSource state)
{
    static constexpr const char* kTexts[] = {
        "taken",
        "missing, not a regular file, or unreadable",
        "no file matches the pattern",
        "not a JPEG picture",
        "pictures with characters beyond ASCII in their names are not loaded",
        "not readable as DICOM",
        "frames are not taken from files in its transfer syntax",
        "no pixel data",
        "the name does not end in .jpg, .dic or .dcm",
        "the script names a SOURCE_FILE, which takes precedence",
    };
    return state >= 0 && state < static_cast<int>(std::size(kTexts)) ? kTexts[state] : "";
}

void Varnotix::ReadObject(const CString& path, CDcmCompositeIOD& object)
{
    CFile file(path, CFile::modeRead);
    CArchive archive(&file, CArchive::load, 4096);
    object.Serialize(archive);
}

const CDcmFrameList* Varnotix::FramesOf(const CDcmImagePixelModule& pixel)
{
    const CDcmElement* data = pixel.GetDcmElementSet().Find(Tag::kPixelData);
    return data != nullptr ? data->Frames() : nullptr;
}

void CScriptFrames::Gather(const CDcmAttributeScript& script)
{
    CStringArray names(script.PixelDataFiles());
    for (const CString& pattern : script.PixelDataDirectories())
    {
        if (!FindSources(pattern, names))
        {
            m_sources.push_back({pattern, SCRIPT_SOURCE_NO_MATCH, 0});
        }
    }
    for (const CString& name : names)
    {
        Take(name);
    }
}

void CScriptFrames::Take(const CString& name)
{
    // An exception on the way leaves the state that explains it.
    m_sources.push_back({name, SCRIPT_SOURCE_NOT_OPENED, 0});
    const int before = m_frames.GetCount();
    const CString ending = name.Right(4);
    EScriptSource state = SCRIPT_SOURCE_OTHER_KIND;
    if (ending.CompareNoCase(".jpg") == 0)
    {
        state = TakePicture(name);
    }
    else if (ending.CompareNoCase(".dic") == 0 || ending.CompareNoCase(".dcm") == 0)
    {
        state = TakeObject(name);
    }
    m_sources.back().state = state;
    m_sources.back().frames = m_frames.GetCount() - before;
}

EScriptSource CScriptFrames::TakePicture(const CString& name)
{
    if (!IsAscii(name))
    {
        return SCRIPT_SOURCE_NOT_ASCII;
    }
    CByteArray bytes;
    try
    {
        if (!ReadPicture(name, bytes, m_width, m_height))
        {
            return SCRIPT_SOURCE_NO_PICTURE;
        }
    }
    catch (const CFileException&)
    {
        return SCRIPT_SOURCE_NOT_OPENED;
    }
    m_frames.AddFrame(bytes);
    return SCRIPT_SOURCE_TAKEN;
}

EScriptSource CScriptFrames::TakeObject(const CString& name)
{
    CDcmCompositeIOD object;
    object.StreamRules(m_rules);
    ReadObject(name, object);
    if (object.GetCount() == 0)
    {
        return SCRIPT_SOURCE_NO_OBJECT;
    }
    CDcmImagePixelModule pixel;
    CDcmMetaFileInformation meta;
    object >> pixel;
    object >> meta;
    if (!GivesFrames(CDcmRegistry::Global().UidEnum(meta.TransferSyntaxUID())))
    {
        return SCRIPT_SOURCE_OTHER_SYNTAX;
    }
    m_width = pixel.Columns();
    m_height = pixel.Rows();
    const CDcmFrameList* frames = FramesOf(pixel);
    const int count = frames != nullptr ? frames->GetCount() : 0;
    for (int i = 0; i < count; ++i)
    {
        const CDcmFrame& frame = *frames->GetFrame(i);
        m_frames.AddFrame(CSharedBytes::Copy(frame.Data(), frame.Size()));
    }
    return count > 0 ? SCRIPT_SOURCE_TAKEN : SCRIPT_SOURCE_NO_FRAMES;
}
