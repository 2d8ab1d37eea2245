#include "Inputs.h"

#include "StreamMaker.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace
{
/// A plausible value for a VR; empty for VRs that the header-heavy object does without.
std::string ValueFor(std::string_view vr, int seed)
{
    const std::string number = std::to_string(seed);
    if (vr == "US" || vr == "SS")
    {
        return std::string(1, static_cast<char>(seed)) + '\1';
    }
    if (vr == "UL" || vr == "SL" || vr == "FL")
    {
        return std::string(4, static_cast<char>(seed));
    }
    if (vr == "FD")
    {
        return std::string(8, static_cast<char>(seed));
    }
    if (vr == "UI")
    {
        return "1.2.826.0.1.3680043.2.1125.10." + number;
    }
    if (vr == "DA")
    {
        return "20240131";
    }
    if (vr == "TM")
    {
        return "101530.250000";
    }
    if (vr == "DS" || vr == "IS")
    {
        return number;
    }
    if (vr == "CS")
    {
        return "ORIGINAL";
    }
    if (vr == "LO" || vr == "SH" || vr == "PN" || vr == "ST" || vr == "LT")
    {
        return "Value " + number;
    }
    return {};
}

/// Public elements of the groups that an MR file is full of, evenly taken from the dictionary.
void AddPublicElements(CStreamMaker& stream, int group, int count)
{
    struct SElement
    {
        int element;
        std::string vr;
    };
    std::vector<SElement> elements;
    for (int element = 1; element < 0x9000; ++element)
    {
        const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(group, element);
        const std::string vr = entry != nullptr ? Varnotix::VrText(static_cast<int>(entry->vr)) : "";
        if (!ValueFor(vr, 0).empty())
        {
            elements.push_back({element, vr});
        }
    }
    const std::size_t step = std::max<std::size_t>(1, elements.size() / static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < elements.size() && i / step < static_cast<std::size_t>(count); i += step)
    {
        stream.Element(group, elements[i].element, elements[i].vr, ValueFor(elements[i].vr, static_cast<int>(i)));
    }
}

void AddReference(CStreamMaker& stream, int item)
{
    stream.BeginItem();
    stream.Element(0x0008, 0x1150, "UI", "1.2.840.10008.5.1.4.1.1.4");
    stream.Element(0x0008, 0x1155, "UI", "1.2.826.0.1.3680043.2.1125.20." + std::to_string(item));
    stream.EndItem();
}

/// Real files, where there are any: mr_*.dcm in the folder of samples.
std::vector<CByteArray> LoadSamples()
{
    const char* const named = std::getenv("VARNOTIX_SAMPLES");
    const std::filesystem::path folder = named != nullptr ? named : "../shared/samples";
    std::vector<CByteArray> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("mr_") && name.ends_with(".dcm"))
        {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
            files.emplace_back().AppendRaw(reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
        }
    }
    return files;
}

std::vector<CByteArray> One(CByteArray file)
{
    std::vector<CByteArray> files;
    files.push_back(std::move(file));
    return files;
}
} // namespace

const std::vector<SInput>& Inputs()
{
    static const std::vector<SInput> inputs = []
    {
        std::vector<SInput> all{
            {"header_heavy", [] { return One(MakeHeaderHeavy()); }},
            {"bulk_128MiB", [] { return One(MakeBulk(std::size_t{128} << 20)); }},
            {"items_20000", [] { return One(MakeItems(20000)); }},
            {"nested_60", [] { return One(MakeNested(60)); }},
            {"flat_100000", [] { return One(MakeFlat(100000)); }},
        };
        if (!LoadSamples().empty())
        {
            all.insert(all.begin(), {"mr_files", LoadSamples});
        }
        return all;
    }();
    return inputs;
}

const std::vector<CByteArray>& FilesOf(const SInput& input)
{
    static std::map<std::string, std::vector<CByteArray>> made;
    const auto [found, isNew] = made.try_emplace(input.name);
    if (isNew)
    {
        found->second = input.make();
    }
    return found->second;
}

CByteArray MakeHeaderHeavy()
{
    CStreamMaker stream;
    AddPublicElements(stream, 0x0008, 35);
    AddPublicElements(stream, 0x0010, 25);
    AddPublicElements(stream, 0x0018, 80);
    stream.Element(0x0019, 0x0010, "LO", "BENCHMARK");
    for (int i = 0; i < 40; ++i)
    {
        stream.Element(0x0019, 0x1000 + i, i % 2 == 0 ? "DS" : "SH", std::to_string(i));
    }
    AddPublicElements(stream, 0x0020, 25);
    stream.Element(0x0021, 0x0010, "LO", "BENCHMARK");
    stream.Element(0x0021, 0x1001, "OB", std::string(2048, '\7'));
    AddPublicElements(stream, 0x0028, 30);
    stream.BeginSequence(0x0032, 0x1064);
    stream.BeginItem();
    stream.Element(0x0008, 0x0100, "SH", "MR1");
    stream.Element(0x0008, 0x0102, "SH", "99BENCH");
    stream.EndItem();
    stream.EndSequence();
    stream.BeginSequence(0x0040, 0x0275);
    stream.BeginItem();
    stream.Element(0x0040, 0x0007, "LO", "Procedure step");
    stream.Element(0x0040, 0x0009, "SH", "1");
    stream.EndItem();
    stream.EndSequence();
    stream.BeginSequence(0x0040, 0xA375);
    for (int i = 0; i < 3; ++i)
    {
        AddReference(stream, i);
    }
    stream.EndSequence();
    stream.Pixels(8192);
    return stream.Bytes();
}

CByteArray MakeBulk(std::size_t frameSize)
{
    CStreamMaker stream;
    AddPublicElements(stream, 0x0010, 5);
    stream.Pixels(frameSize);
    return stream.Bytes();
}

CByteArray MakeItems(int count)
{
    CStreamMaker stream;
    stream.BeginSequence(0x0008, 0x1140);
    for (int i = 0; i < count; ++i)
    {
        AddReference(stream, i);
    }
    stream.EndSequence();
    return stream.Bytes();
}

CByteArray MakeNested(int depth)
{
    CStreamMaker stream;
    for (int i = 0; i < depth; ++i)
    {
        stream.BeginSequence(0x0040, 0xA730);
        stream.BeginItem();
    }
    stream.Element(0x0040, 0xA160, "UT", "Innermost");
    for (int i = 0; i < depth; ++i)
    {
        stream.EndItem();
        stream.EndSequence();
    }
    return stream.Bytes();
}

CByteArray MakeFlat(int count)
{
    constexpr int kElementsInGroup = 0x1000;
    CStreamMaker stream;
    for (int i = 0; i < count; ++i)
    {
        const int group = 0x1001 + 2 * (i / kElementsInGroup);
        if (i % kElementsInGroup == 0)
        {
            stream.Element(group, 0x0010, "LO", "BENCHMARK");
        }
        stream.Element(group, 0x1000 + i % kElementsInGroup, "LO", "Value " + std::to_string(i));
    }
    return stream.Bytes();
}

CByteArray MakeFrames(int count)
{
    const std::string frame(512, '\5');
    std::string table;
    for (int i = 0; i < count; ++i)
    {
        const auto offset = static_cast<std::uint32_t>(i) * static_cast<std::uint32_t>(frame.size() + 8);
        for (int shift = 0; shift < 32; shift += 8)
        {
            table += static_cast<char>(offset >> shift & 0xFF);
        }
    }
    CStreamMaker stream("1.2.840.10008.1.2.5");
    stream.BeginEncapsulatedPixels();
    stream.Fragment(table);
    for (int i = 0; i < count; ++i)
    {
        stream.Fragment(frame);
    }
    stream.EndSequence();
    return stream.Bytes();
}
