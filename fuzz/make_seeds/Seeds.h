/// Where the seeds go.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <string>

/// Writes a seed of a target.
void PutSeed(const std::string& target, const std::string& name, const CByteArray& bytes);
void PutSeed(const std::string& target, const std::string& name, const std::string& text);

void MakeStreamSeeds();
void MakeTypedSeeds();
void MakeRleSeeds();
void MakePduSeeds();
void MakeTextSeeds();
