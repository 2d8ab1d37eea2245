#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Lists.h"
#include "Varnotix/platform/Maps.h"

IMPLEMENT_DYNCREATE(CByteArray, CObject)
IMPLEMENT_DYNCREATE(CWordArray, CObject)
IMPLEMENT_DYNCREATE(CDWordArray, CObject)
IMPLEMENT_DYNCREATE(CUIntArray, CObject)
IMPLEMENT_DYNCREATE(CStringArray, CObject)
IMPLEMENT_DYNCREATE(CObArray, CObject)
IMPLEMENT_DYNCREATE(CObList, CObject)
IMPLEMENT_DYNCREATE(CStringList, CObject)
IMPLEMENT_DYNCREATE(CMapStringToOb, CObject)
IMPLEMENT_DYNCREATE(CMapWordToOb, CObject)

CObList::CObList(int) {}

CStringList::CStringList(int) {}
