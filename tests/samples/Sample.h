/// What the sample tests share: the files, and element sets told line by line.
#pragma once

#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/platform/File.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

/// The folder of sample files; empty when there is none.
inline std::string SampleFolder()
{
    const char* folder = std::getenv("VARNOTIX_SAMPLES");
    return folder != nullptr && std::filesystem::is_directory(folder) ? folder : "";
}

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
        object.Import(FileBytes(SampleFolder() + "/" + name));
        if (object.GetCount() > 0)
        {
            check(object, name);
        }
    }
}

/// Number and hash of bytes; nothing for none.
inline std::string Digest(const void* bytes, std::size_t size)
{
    const std::size_t hash = std::hash<std::string_view>()({static_cast<const char*>(bytes), size});
    return size > 0 ? Text("%u:%08x ", static_cast<unsigned>(size), static_cast<unsigned>(hash)) : "";
}

/// The value of an element in a form that tells any difference: texts as they are, everything else as a hash of its
/// typed values or frames.
inline std::string ValueText(const CDcmElement& element)
{
    if (element.Texts() != nullptr)
    {
        // A UID equals its padded form, here as in the library.
        return std::string(element.HasVr(VR_UI) ? element.JoinedText().CText() : element.JoinedText().View());
    }
    const CDcmFrameList* frames = element.Frames();
    std::string text;
    for (int i = 0; frames != nullptr && i < frames->GetCount(); ++i)
    {
        const CDcmFrame& frame = *frames->GetFrame(i);
        text += std::to_string(frame.Number()) + ":" + Digest(frame.Data(), frame.Size());
    }
    const auto add = [&](const auto* values)
    {
        if (values != nullptr)
        {
            text += Digest(values->GetData(), static_cast<std::size_t>(values->GetSize()) * sizeof(*values->GetData()));
        }
    };
    add(element.Words());
    add(element.Integers());
    add(element.Floats());
    add(element.Doubles());
    add(frames == nullptr ? element.Bytes() : nullptr);
    return text + (element.HasVr(VR_UN) ? Digest(element.RawBytes().Data(), element.RawBytes().Size()) : "");
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
        lines[place] = std::string(VrText(element.Vr())) + " " + ValueText(element);
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
