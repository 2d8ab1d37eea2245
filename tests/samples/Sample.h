/// What the sample tests share: the files, and element sets line by line.
#pragma once

#include "Programs.h"
#include "StreamBytes.h"
#include "Varnotix/iod/DcmIOD.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

/// A test over the samples has nothing to say without them.
#define SKIP_WITHOUT_SAMPLES() \
    if (SampleFolder().empty()) \
    GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder of sample files"

/// The names of all sample files, in order.
inline std::set<std::string> SampleNames()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SampleFolder()))
    {
        if (entry.path().extension() == ".dcm")
        {
            names.insert(entry.path().filename().string());
        }
    }
    return names;
}

inline CByteArray FileBytes(const std::string& path)
{
    CFile file(path.c_str(), CFile::modeRead);
    CByteArray bytes;
    bytes.SetSize(static_cast<int>(file.GetLength()));
    file.Read(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
    return bytes;
}

inline std::string Text(const char* format, auto... values)
{
    CString text;
    text.Format(format, values...);
    return std::string(text.View());
}

/// Every sample that can be read, as a plain object, and its name.
inline void ForEachSample(const std::function<void(CDcmIOD&, const std::string&)>& check)
{
    for (const std::string& name : SampleNames())
    {
        SCOPED_TRACE(name);
        CDcmIOD object;
        object.Import(FileBytes((SampleFolder() / name).string()));
        if (object.GetCount() > 0)
        {
            check(object, name);
        }
    }
}

/// Every element at every depth: its path, as "00081140/00081155#2" for the third of that tag among the gathered
/// items, and its VR and value.
using Lines = std::map<std::string, std::string>;

inline void AddLines(const CDcmElementSet& set, const std::string& path, Lines& lines)
{
    std::map<DWORD, int> counts;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        std::string place = path + Text("%08X", element.Tag());
        if (const int before = counts[element.Tag()]++)
        {
            place += Text("#%d", before);
        }
        // Long values as their hash, which shows any difference as well.
        const std::string value = ShowValue(element);
        lines[place] = std::string(Varnotix::VrText(element.Vr())) + " " +
                       (value.size() < 100 ? value : std::to_string(std::hash<std::string>()(value)));
        if (const CDcmElementSet* items = element.Items())
        {
            AddLines(*items, place + "/", lines);
        }
    }
}

inline Lines LinesOf(const CDcmIOD& object)
{
    Lines lines;
    AddLines(object.ElementStore(), "", lines);
    return lines;
}
