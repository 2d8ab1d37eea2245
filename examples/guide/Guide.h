/// The code of docs/host-guide.md and of the other pages, as one program that runs it all.
#pragma once

#include "Varnotix/Varnotix.h"

#include <iostream>
#include <string>

// One call per chapter. Each prints what the page shows and uses the file that Making wrote.
void Making();
void Reading();
void Editing();
void Writing();
void Frames();
void Sequences();
void Texts();
void Scripts();
void Anonymising();
void Deidentifying();
void Associations();
void Failures();
void Threads();

void ReadFile(const char* path, CDcmIOD& object);
void WriteFile(const char* path, CDcmIOD& object);
