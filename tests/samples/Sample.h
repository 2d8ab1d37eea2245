/// What the sample tests share: the files, and element sets told line by line.
#pragma once

#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/platform/File.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <string>

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

/// CRC-32 (ISO 3309), as archives and pictures use it.
class CCrc
{
public:
    void Add(const BYTE* bytes, std::size_t size)
    {
        static const std::array<DWORD, 256> table = []
        {
            std::array<DWORD, 256> made{};
            for (DWORD i = 0; i < made.size(); ++i)
            {
                made[i] = i;
                for (int bit = 0; bit < 8; ++bit)
                {
                    made[i] = (made[i] & 1U) != 0 ? (made[i] >> 1U) ^ 0xEDB88320U : made[i] >> 1U;
                }
            }
            return made;
        }();
        for (std::size_t i = 0; i < size; ++i)
        {
            m_crc = table[(m_crc ^ bytes[i]) & 0xFFU] ^ (m_crc >> 8U);
        }
    }
    DWORD Value() const { return ~m_crc; }

private:
    DWORD m_crc = 0xFFFFFFFFU;
};

inline std::string Text(const char* format, auto... values)
{
    CString text;
    text.Format(format, values...);
    return std::string(text.View());
}

/// The value of an element in a form that tells any difference: texts as they are, everything else as a CRC of its
/// typed values or frames.
inline std::string ValueText(const CDcmElement& element)
{
    if (element.Texts() != nullptr)
    {
        // A UID equals its padded form, here as in the library.
        return std::string(element.HasVr(VR_UI) ? element.JoinedText().CText() : element.JoinedText().View());
    }
    CCrc crc;
    std::size_t size = 0;
    const auto add = [&](const void* bytes, std::size_t count)
    {
        crc.Add(static_cast<const BYTE*>(bytes), count);
        size += count;
    };
    const auto addArray = [&](const auto* values)
    {
        if (values != nullptr)
        {
            add(values->GetData(), static_cast<std::size_t>(values->GetSize()) * sizeof(*values->GetData()));
        }
    };
    if (const CDcmFrameList* frames = element.Frames())
    {
        std::string text;
        for (int i = 0; i < frames->GetCount(); ++i)
        {
            const CDcmFrame& frame = *frames->GetFrame(i);
            CCrc each;
            each.Add(frame.Data(), frame.Size());
            text += Text("%d:%u:%08x ", frame.Number(), static_cast<unsigned>(frame.Size()), each.Value());
        }
        return text;
    }
    addArray(element.Words());
    addArray(element.Integers());
    addArray(element.Floats());
    addArray(element.Doubles());
    addArray(element.Bytes());
    if (element.HasVr(VR_UN))
    {
        add(element.RawBytes().Data(), element.RawBytes().Size());
    }
    return size > 0 ? Text("%u:%08x", static_cast<unsigned>(size), crc.Value()) : std::string();
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
