#include "script/JpegFacts.h"

#include "object/Attributes.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr DWORD kLossyImageCompression = 0x00282110;
constexpr DWORD kLossyImageCompressionRatio = 0x00282112;
constexpr DWORD kLossyImageCompressionMethod = 0x00282114;

constexpr int kBitsOfByte = 8;

/// What the segments before the first scan say.
struct SSegments
{
    int process = -1; // Low half of the frame marker.
    int precision = 0;
    int rows = 0;
    int columns = 0;
    int components = 0;
    BYTE ids[3] = {};
    BYTE sampling[3] = {}; // Horizontal factor in the high half, vertical in the low.
    bool hasJfif = false;
    int transform = -1; // Of an Adobe segment.
    int predictor = 0;
    bool hasEnd = false; // The marker of the end follows the header.
};

int Word(const BYTE* bytes)
{
    return bytes[0] << 8 | bytes[1];
}

void ReadFrame(const BYTE* segment, int size, int marker, SSegments& read)
{
    constexpr int kFixed = 6;
    constexpr int kComponent = 3;
    if (size < kFixed)
    {
        return;
    }
    read.process = marker & 0x0F;
    read.precision = segment[0];
    read.rows = Word(segment + 1);
    read.columns = Word(segment + 3);
    read.components = segment[5];
    for (int i = 0; i < 3 && i < read.components && size >= kFixed + kComponent * (i + 1); ++i)
    {
        read.ids[i] = segment[kFixed + kComponent * i];
        read.sampling[i] = segment[kFixed + kComponent * i + 1];
    }
}

bool IsFrameMarker(int marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Reads one segment.
/// @return false at the first scan, which ends the header.
bool ReadSegment(const BYTE* segment, int size, int marker, SSegments& read)
{
    if (IsFrameMarker(marker))
    {
        ReadFrame(segment, size, marker, read);
    }
    else if (marker == 0xE0)
    {
        read.hasJfif = size >= 5 && std::memcmp(segment, "JFIF", 5) == 0;
    }
    else if (marker == 0xEE && size >= 12 && std::memcmp(segment, "Adobe", 5) == 0)
    {
        read.transform = segment[11];
    }
    else if (marker == 0xDA && size > 0 && size > 1 + 2 * segment[0])
    {
        read.predictor = segment[1 + 2 * segment[0]];
    }
    return marker != 0xDA;
}

SSegments ReadSegments(const CByteArray& bytes)
{
    SSegments read;
    const int size = bytes.GetSize();
    const BYTE* data = bytes.GetData();
    constexpr BYTE kEnd[] = {0xFF, 0xD9};
    int place = 2;
    while (place + 4 <= size && data[place] == 0xFF)
    {
        const int marker = data[place + 1];
        if (marker == 0xFF || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7))
        {
            place += marker == 0xFF ? 1 : 2; // A fill byte, or a marker without a segment.
            continue;
        }
        const int length = Word(data + place + 2);
        if (length < 2 || length > size - place - 2 || !ReadSegment(data + place + 4, length - 2, marker, read))
        {
            break;
        }
        place += 2 + length;
    }
    read.hasEnd =
        std::search(data + std::min(place, size), data + size, std::begin(kEnd), std::end(kEnd)) != data + size;
    return read;
}

CString TransferSyntaxOf(const SSegments& read)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    switch (read.process)
    {
    case 0:
        return registry.UidString(Varnotix::UID_JPEG_BASELINE);
    case 1:
        return registry.UidString(Varnotix::UID_JPEG_EXTENDED);
    case 3:
        return registry.UidString(read.predictor == 1 ? Varnotix::UID_JPEG_LOSSLESS_FIRST_ORDER
                                                      : Varnotix::UID_JPEG_LOSSLESS);
    default:
        return CString();
    }
}

CString PhotometricOf(const SSegments& read)
{
    if (read.components == 1)
    {
        return "MONOCHROME2";
    }
    const bool isNamed = std::memcmp(read.ids, "RGB", 3) == 0;
    const bool isLossless = read.process == 3;
    if (read.transform == 0 || (read.transform < 0 && !read.hasJfif && (isNamed || isLossless)))
    {
        return "RGB";
    }
    return read.sampling[0] != read.sampling[1] ? "YBR_FULL_422" : "YBR_FULL";
}

void Report(DWORD tag, const CString& old, const CString& value, const CString& name, const CReport& report)
{
    const CString place = name + ": " + TagAndName(tag) + ": ";
    if (old.IsEmpty())
    {
        report.Detail(place + "added as " + value);
    }
    else
    {
        report.Say(place + old + " replaced by " + value + ", as the picture says");
    }
}

void SetWord(CDcmElementSet& store, DWORD tag, int value, const CString& name, const CReport& report)
{
    const std::optional<int> old = WordOf(store, tag);
    if (old == value)
    {
        return;
    }
    const char bytes[] = {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
    SetText(store, tag, {bytes, sizeof bytes}, '\0');
    const auto number = [](int shown)
    {
        CString text;
        text.Format("%d", shown);
        return text;
    };
    Report(tag, old ? number(*old) : CString(), number(value), name, report);
}

void SetWords(CDcmElementSet& store, DWORD tag, const CString& value, const CString& name, const CReport& report)
{
    const CString old = TextOf(store, tag);
    if (old != value)
    {
        SetText(store, tag, value.View(), ' ');
        Report(tag, old, value, name, report);
    }
}

} // namespace

CString ReadJpegFacts(const CByteArray& bytes, SJpegFacts& facts)
{
    const SSegments read = ReadSegments(bytes);
    CString fault;
    if (read.process < 0)
    {
        return "its header has no frame segment";
    }
    facts.transferSyntax = TransferSyntaxOf(read);
    if (facts.transferSyntax.IsEmpty())
    {
        return read.process == 2 ? "it is a progressive JPEG, for which there is no transfer syntax in use; "
                                   "save it as a baseline JPEG"
                                 : "it is a JPEG of a coding for which there is no transfer syntax in use";
    }
    if (read.components != 1 && read.components != 3)
    {
        fault.Format("it has %d color components, where objects have 1 or 3", read.components);
        return fault;
    }
    if (read.precision < 2 || read.precision > 2 * kBitsOfByte)
    {
        fault.Format("it has %d bits per sample", read.precision);
        return fault;
    }
    if (!read.hasEnd)
    {
        return "it is cut off: the marker of its end is missing";
    }
    facts.photometric = PhotometricOf(read);
    facts.precision = read.precision;
    facts.components = read.components;
    facts.rows = read.rows;
    facts.columns = read.columns;
    facts.isLossy = read.process != 3;
    return fault;
}

void DescribeJpeg(const SJpegFacts& facts, CDcmElementSet& store, const CString& name, const CReport& report)
{
    const int allocated = facts.precision <= kBitsOfByte ? kBitsOfByte : 2 * kBitsOfByte;
    SetWord(store, Tag::kSamplesPerPixel, facts.components, name, report);
    SetWords(store, Tag::kPhotometricInterpretation, facts.photometric, name, report);
    if (facts.components > 1)
    {
        SetWord(store, Tag::kPlanarConfiguration, 0, name, report);
    }
    else if (CDcmElement* planar = store.Find(Tag::kPlanarConfiguration))
    {
        store.Remove(planar); // It is for several samples only (PS3.3 C.7.6.3.1.3).
    }
    SetWord(store, Tag::kBitsAllocated, allocated, name, report);
    SetWord(store, Tag::kBitsStored, facts.precision, name, report);
    SetWord(store, Tag::kHighBit, facts.precision - 1, name, report);
    SetWord(store, Tag::kPixelRepresentation, 0, name, report);
    const CDcmElement* pixels = store.Find(Tag::kPixelData);
    const CDcmFrameList* frames = pixels != nullptr ? pixels->Frames() : nullptr;
    if (!facts.isLossy || frames == nullptr || frames->TotalSize() == 0)
    {
        return;
    }
    SetWords(store, kLossyImageCompression, "01", name, report);
    const double pixelCount = static_cast<double>(facts.rows) * facts.columns * frames->GetCount();
    const double bits = pixelCount * facts.components * facts.precision;
    CString ratio;
    ratio.Format("%.2f", bits / kBitsOfByte / static_cast<double>(frames->TotalSize()));
    if (TextOf(store, kLossyImageCompressionRatio).IsEmpty())
    {
        SetWords(store, kLossyImageCompressionRatio, ratio, name, report);
    }
    if (TextOf(store, kLossyImageCompressionMethod).IsEmpty())
    {
        SetWords(store, kLossyImageCompressionMethod, "ISO_10918_1", name, report);
    }
}
