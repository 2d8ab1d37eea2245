/// The verbs of the command-line host. Each function declares a verb, its options and its help, and what it does.
#pragma once

#include "commands/CommandLine.h"

void AddAnonymize(CCommandLine& line);
void AddApply(CCommandLine& line);
void AddBuild(CCommandLine& line);
void AddCheck(CCommandLine& line);
void AddConvert(CCommandLine& line);
void AddDiff(CCommandLine& line);
void AddDeidentify(CCommandLine& line);
void AddDump(CCommandLine& line);
void AddFrames(CCommandLine& line);
void AddList(CCommandLine& line);
void AddModules(CCommandLine& line);
void AddNew(CCommandLine& line);
void AddPdu(CCommandLine& line);
void AddSet(CCommandLine& line);
void AddWhere(CCommandLine& line);
