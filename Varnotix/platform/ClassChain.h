#pragma once

// The library's own classes enter and leave the chain that CRuntimeClass::FromName searches. Calls nest.
void JoinLibraryClasses();
void LeaveLibraryClasses();
