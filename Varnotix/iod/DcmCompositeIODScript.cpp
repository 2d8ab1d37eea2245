// A whole object from a script: attributes, anonymisation, pixel data from files.

#include "Varnotix/asl/ScanNumber.h"
#include "Varnotix/catalogue/DcmMultiFrameModule.h"
#include "Varnotix/iod/DcmCompositeIOD.h"
#include "Varnotix/iod/DcmIODPrivate.h"
#include "Varnotix/iod/DcmMetaFileInformation.h"
#include "Varnotix/iod/ScriptFrames.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"
#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/UidRow.h"
#include "Varnotix/script/DcmAttributeScript.h"

namespace
{

bool IsOne(const CString& text)
{
    return Varnotix::ScanInteger(text.CText()).value == 1;
}

/// A size that the script gives, without its sign, or the one that was seen.
WORD SizeOr(const CString& text, WORD seen)
{
    const auto scanned = Varnotix::ScanInteger(text.CText());
    const unsigned size = static_cast<unsigned>(scanned.value);
    return scanned.found ? static_cast<WORD>(scanned.value < 0 ? 0U - size : size) : seen;
}

/// Puts the pixel modules of an existing file into the object.
void TakeSourceFile(const CString& path, CDcmIOD& object, SScriptSource& source)
{
    CDcmCompositeIOD file;
    file.StreamRules(object.StreamRules());
    Varnotix::ReadObject(path, file);
    CDcmImagePixelModule pixel;
    CDcmMultiFrameModule multiFrame;
    file >> pixel;
    file >> multiFrame;
    object << pixel;
    object << multiFrame;
    const CDcmFrameList* frames = Varnotix::FramesOf(pixel);
    source.frames = frames != nullptr ? frames->GetCount() : 0;
    source.state = file.GetCount() == 0 ? SCRIPT_SOURCE_NO_OBJECT
                   : source.frames == 0 ? SCRIPT_SOURCE_NO_FRAMES
                                        : SCRIPT_SOURCE_TAKEN;
}

/// Puts gathered frames into the object, with what describes them.
void PutFrames(const CScriptFrames& frames, const CDcmAttributeScript& script, CDcmIOD& object)
{
    CDcmMetaFileInformation meta;
    object >> meta;
    meta.TransferSyntaxUID(CDcmRegistry::Global().UidString(Varnotix::UID_JPEG_BASELINE));

    CDcmImagePixelModule pixel;
    if (CDcmElement* data = pixel.GetDcmElementSet().Find(Varnotix::Tag::kPixelData))
    {
        data->ForcePixelVr(VR_OB);
        *data->Frames() = frames.Frames();
    }
    pixel.Columns(SizeOr(script.ColsText(), frames.Width()));
    pixel.Rows(SizeOr(script.RowsText(), frames.Height()));

    CDcmMultiFrameModule multiFrame;
    CString count;
    count.Format("%d", frames.Frames().GetCount());
    multiFrame.NumberOfFrames(count);

    object << meta;
    object << pixel;
    object << multiFrame;
}

} // namespace

void CDcmCompositeIOD::CreateFromASL(const CStringArray& lines)
{
    CDcmAttributeScript script;
    script.StreamRules(StreamRules());
    CDcmAttributeModule attributes;
    script.Run(lines, attributes);
    IodPrivate().scriptNotes = script.Notes();
    std::vector<SScriptSource>& sources = IodPrivate().scriptSources;
    sources.clear();

    if (IsOne(script.RemoveEmptyAll()))
    {
        *this << attributes;
    }
    else
    {
        *this += attributes;
    }
    if (IsOne(script.Anonymize55First()))
    {
        Anonymize55(script.Anonymize55Second());
    }
    if (!script.SourceFile().IsEmpty())
    {
        for (const CStringArray* others : {&script.PixelDataFiles(), &script.PixelDataDirectories()})
        {
            for (const CString& name : *others)
            {
                sources.push_back({name, SCRIPT_SOURCE_PASSED_OVER, 0});
            }
        }
        sources.push_back({script.SourceFile(), SCRIPT_SOURCE_NOT_OPENED, 0});
        TakeSourceFile(script.SourceFile(), *this, sources.back());
        return;
    }
    CScriptFrames frames(StreamRules(), sources);
    frames.Gather(script);
    if (frames.Frames().GetCount() > 0)
    {
        PutFrames(frames, script, *this);
    }
}

const std::vector<SScriptSource>& CDcmCompositeIOD::ScriptSources() const
{
    return IodPrivate().scriptSources;
}
