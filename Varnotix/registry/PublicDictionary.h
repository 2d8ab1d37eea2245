/// The public dictionary as decoders use it, which look up every tag of a stream.
#pragma once

#include "Varnotix/registry/EntryTable.h"

namespace Varnotix
{

/// The entries of the dictionary file, as CDcmRegistry::LookUpPublicTag finds them; valid until the library is
/// unloaded.
const CEntryTable& PublicDictionary();

} // namespace Varnotix
