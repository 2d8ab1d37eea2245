/// The pixel data that a script takes from files.
#pragma once

#include "Varnotix/codec/StreamRules.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/ScriptSource.h"

#include <vector>

class CDcmAttributeScript;
class CDcmCompositeIOD;
class CDcmImagePixelModule;

namespace Varnotix
{

/// Reads a DICOM file; throws CFileException when it cannot be opened.
void ReadObject(const CString& path, CDcmCompositeIOD& object);

/// The frames that a module holds, or null.
const CDcmFrameList* FramesOf(const CDcmImagePixelModule& pixel);

} // namespace Varnotix

/// Gathers frames from the pictures and DICOM files that a script names or finds by pattern.
class CScriptFrames
{
public:
    /// @param rules those by which DICOM files are read.
    /// @param sources receives what came of each file.
    CScriptFrames(EStreamRules rules, std::vector<SScriptSource>& sources) : m_rules(rules), m_sources(sources) {}

    /// Throws CFileException when a DICOM file cannot be opened.
    void Gather(const CDcmAttributeScript& script);

    const CDcmFrameList& Frames() const { return m_frames; }
    /// The size of the last picture that was taken, or of the last object in a syntax that is taken, whether or not it
    /// gave frames; 0 before.
    WORD Width() const { return m_width; }
    WORD Height() const { return m_height; }

private:
    void Take(const CString& name);
    EScriptSource TakePicture(const CString& name);
    EScriptSource TakeObject(const CString& name);

    EStreamRules m_rules;
    std::vector<SScriptSource>& m_sources;
    CDcmFrameList m_frames;
    WORD m_width = 0;
    WORD m_height = 0;
};
