#include "Varnotix/catalogue/DcmAudioModule.h"

#include "Varnotix/registry/TagText.h"

IMPLEMENT_DCM_REPEATING_ROWS(CDcmAudioModule, CDcmModule, InitializeModule)

CDcmAudioModule::CDcmAudioModule(const CString& group) : m_dcmGroup(group)
{
    int number = 0;
    if (!Varnotix::ScanHexNumber(group, number))
    {
        m_dcmGroup = DcmDefaultGroup();
    }
    CDcmAudioModule::InitializeModule();
}
