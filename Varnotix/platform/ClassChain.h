/// The library's part of the chain of run-time classes.
#pragma once

namespace Varnotix
{

/// Adds the library's classes to those that CRuntimeClass::FromName searches. Calls nest.
void JoinLibraryClasses();

/// Undoes one call of JoinLibraryClasses.
void LeaveLibraryClasses();

} // namespace Varnotix
