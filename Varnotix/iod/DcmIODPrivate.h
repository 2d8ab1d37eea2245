/// Implementation details of CDcmIOD.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/iod/ScriptSource.h"
#include "Varnotix/platform/Object.h"

#include <vector>

class CDcmIODPrivate : public CObject
{
    DECLARE_DYNAMIC(CDcmIODPrivate)

public:
    bool isTyped = false; ///< The object has modules of its own.
    std::vector<SReadTrial> readTrials;
    std::vector<SReadNote> readNotes;
    std::vector<SScriptNote> scriptNotes;
    std::vector<SScriptSource> scriptSources;
};
