/// Tags: the group and element number of an attribute in one number.
#pragma once

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/platform/Types.h"

#include <optional>
#include <string_view>

/// Tags (PS3.5 section 7.1) are numbers with the group in the high half and the element in the low half; they sort as
/// elements do in a stream.
namespace Varnotix::Tag
{

inline constexpr int kMetaGroup = 0x0002; ///< Group of the file meta information (PS3.10 section 7.1).
inline constexpr int kItemGroup = 0xFFFE; ///< Group of the tags that delimit items and sequences (PS3.5 section 7.5).

// Named tags, in tag order; names are the keywords of PS3.6.
inline constexpr DWORD kFileMetaInformationGroupLength =
    0x00020000;                                                  ///< File Meta Information Group Length (0002,0000).
inline constexpr DWORD kFileMetaInformationVersion = 0x00020001; ///< File Meta Information Version (0002,0001).
inline constexpr DWORD kMediaStorageSopClassUid = 0x00020002;    ///< Media Storage SOP Class UID (0002,0002).
inline constexpr DWORD kMediaStorageSopInstanceUid = 0x00020003; ///< Media Storage SOP Instance UID (0002,0003).
inline constexpr DWORD kTransferSyntaxUid = 0x00020010;          ///< Transfer Syntax UID (0002,0010).
inline constexpr DWORD kImageType = 0x00080008;                  ///< Image Type (0008,0008).
inline constexpr DWORD kSopClassUid = 0x00080016;                ///< SOP Class UID (0008,0016).
inline constexpr DWORD kSopInstanceUid = 0x00080018;             ///< SOP Instance UID (0008,0018).
inline constexpr DWORD kModality = 0x00080060;                   ///< Modality (0008,0060).
inline constexpr DWORD kPatientName = 0x00100010;                ///< Patient's Name (0010,0010).
inline constexpr DWORD kPatientId = 0x00100020;                  ///< Patient ID (0010,0020).
inline constexpr DWORD kPatientIdentityRemoved = 0x00120062;     ///< Patient Identity Removed (0012,0062).
inline constexpr DWORD kDeidentificationMethod = 0x00120063;     ///< De-identification Method (0012,0063).
inline constexpr DWORD kStudyInstanceUid = 0x0020000D;           ///< Study Instance UID (0020,000D).
inline constexpr DWORD kSeriesInstanceUid = 0x0020000E;          ///< Series Instance UID (0020,000E).
inline constexpr DWORD kFrameOfReferenceUid = 0x00200052;        ///< Frame of Reference UID (0020,0052).
inline constexpr DWORD kSamplesPerPixel = 0x00280002;            ///< Samples per Pixel (0028,0002).
inline constexpr DWORD kPhotometricInterpretation = 0x00280004;  ///< Photometric Interpretation (0028,0004).
inline constexpr DWORD kPlanarConfiguration = 0x00280006;        ///< Planar Configuration (0028,0006).
inline constexpr DWORD kNumberOfFrames = 0x00280008;             ///< Number of Frames (0028,0008).
inline constexpr DWORD kRows = 0x00280010;                       ///< Rows (0028,0010).
inline constexpr DWORD kColumns = 0x00280011;                    ///< Columns (0028,0011).
inline constexpr DWORD kBitsAllocated = 0x00280100;              ///< Bits Allocated (0028,0100).
inline constexpr DWORD kBitsStored = 0x00280101;                 ///< Bits Stored (0028,0101).
inline constexpr DWORD kHighBit = 0x00280102;                    ///< High Bit (0028,0102).
inline constexpr DWORD kPixelRepresentation = 0x00280103;        ///< Pixel Representation (0028,0103).
inline constexpr DWORD kPixelPaddingValue = 0x00280120;          ///< Pixel Padding Value (0028,0120).
inline constexpr DWORD kBurnedInAnnotation = 0x00280301;         ///< Burned In Annotation (0028,0301).
inline constexpr DWORD kPixelData = 0x7FE00010;                  ///< Pixel Data (7FE0,0010).
inline constexpr DWORD kItem = 0xFFFEE000;                       ///< Item (FFFE,E000).
inline constexpr DWORD kItemDelimitationItem = 0xFFFEE00D;       ///< Item Delimitation Item (FFFE,E00D).
inline constexpr DWORD kSequenceDelimitationItem = 0xFFFEE0DD;   ///< Sequence Delimitation Item (FFFE,E0DD).

/// The tag of a group and an element number, both cut to 16 bits.
constexpr DWORD Make(int group, int element)
{
    return ((static_cast<DWORD>(group) & 0xFFFFU) << 16U) | (static_cast<DWORD>(element) & 0xFFFFU);
}

/// True when both numbers have 16 bits, so that Make cuts neither.
constexpr bool IsTag(int group, int element)
{
    return group >= 0 && group <= 0xFFFF && element >= 0 && element <= 0xFFFF;
}

/// The group number, 0 to FFFFH.
constexpr int Group(DWORD tag)
{
    return static_cast<int>(tag >> 16U);
}

/// The element number, 0 to FFFFH.
constexpr int Element(DWORD tag)
{
    return static_cast<int>(tag & 0xFFFFU);
}

/// True for the group length (gggg,0000) of any group.
constexpr bool IsGroupLength(DWORD tag)
{
    return Element(tag) == 0;
}

/// True for the tags of odd groups, which the standard leaves to manufacturers (PS3.5 section 7.8).
constexpr bool IsPrivate(DWORD tag)
{
    return Group(tag) % 2 != 0;
}

/// Reads a group or element number: a text of nothing but hexadecimal digits whose value 16 bits hold.
/// @return nothing for any other text.
constexpr std::optional<int> ParseNumber(std::string_view digits)
{
    int number = 0;
    for (const char character : digits)
    {
        const int digit = HexDigit(character);
        if (digit < 0 || number > 0xFFF)
        {
            return std::nullopt;
        }
        number = number * 16 + digit;
    }
    return digits.empty() ? std::nullopt : std::optional(number);
}

/// Reads a tag from the texts of its numbers (see ParseNumber).
constexpr std::optional<DWORD> Parse(std::string_view group, std::string_view element)
{
    const std::optional<int> groupNumber = ParseNumber(group);
    const std::optional<int> elementNumber = ParseNumber(element);
    return groupNumber && elementNumber ? std::optional(Make(*groupNumber, *elementNumber)) : std::nullopt;
}

} // namespace Varnotix::Tag
