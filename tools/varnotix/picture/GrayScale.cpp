#include "picture/GrayScale.h"

#include "console/Report.h"
#include "object/Attributes.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr DWORD kWindowCenter = 0x00281050;
constexpr DWORD kWindowWidth = 0x00281051;
constexpr DWORD kRescaleIntercept = 0x00281052;
constexpr DWORD kRescaleSlope = 0x00281053;
constexpr DWORD kVoiLutFunction = 0x00281056;
constexpr DWORD kModalityLut = 0x00283000;
constexpr DWORD kLutDescriptor = 0x00283002;
constexpr DWORD kLutData = 0x00283006;
constexpr DWORD kVoiLut = 0x00283010;
constexpr DWORD kFrameVoiLut = 0x00289132;
constexpr DWORD kValueTransformation = 0x00289145;

CString NoNumber(DWORD tag, const CString& text)
{
    return TagAndName(tag) + " '" + text + "' cannot be used";
}

const CDcmElementSet* ItemsOf(const CDcmElement* sequence)
{
    const CDcmElementSet* items = sequence != nullptr ? sequence->Items() : nullptr;
    return items != nullptr && items->ItemCount() > 0 ? items : nullptr;
}

} // namespace

CString CGrayScale::Read(const CFrameAttributes& attributes, const SWindowChoice& choice, bool isSigned, CString& note)
{
    using EKind = SWindowChoice::EKind;
    CString reason = ReadModality(attributes, isSigned);
    if (!reason.IsEmpty() || choice.kind == EKind::Range)
    {
        return reason;
    }
    if (choice.kind == EKind::Given)
    {
        m_center = choice.center;
        m_width = choice.width;
        return ReadFunction(attributes);
    }
    if (choice.kind == EKind::Object)
    {
        note = ReadWindow(attributes);
    }
    if (!note.IsEmpty() || m_function != EFunction::Range)
    {
        m_function = note.IsEmpty() ? m_function : EFunction::Range;
        note += note.IsEmpty() ? "" : ": drawn over the range of its values";
        return CString();
    }
    reason = ReadTable(attributes, isSigned);
    if (choice.kind == EKind::Table)
    {
        return m_function == EFunction::Table || !reason.IsEmpty() ? reason : "it has no " + TagAndName(kVoiLut);
    }
    note = reason.IsEmpty() ? CString() : reason + ": drawn over the range of its values";
    return CString();
}

CString CGrayScale::ReadModality(const CFrameAttributes& attributes, bool isSigned)
{
    if (const CDcmElementSet* items = ItemsOf(attributes.Store().Find(kModalityLut)))
    {
        return m_modalityTable.emplace().Read(*items, kLutDescriptor, kLutData, isSigned);
    }
    const CString slope = attributes.FirstText(kValueTransformation, kRescaleSlope);
    const CString intercept = attributes.FirstText(kValueTransformation, kRescaleIntercept);
    m_slope = slope.IsEmpty() ? 1 : DecimalNumber(slope).value_or(0);
    if (m_slope == 0)
    {
        return NoNumber(kRescaleSlope, slope);
    }
    const std::optional<double> offset = intercept.IsEmpty() ? 0 : DecimalNumber(intercept);
    if (!offset.has_value())
    {
        return NoNumber(kRescaleIntercept, intercept);
    }
    m_intercept = *offset;
    return CString();
}

CString CGrayScale::ReadFunction(const CFrameAttributes& attributes)
{
    const CString function = attributes.FirstText(kFrameVoiLut, kVoiLutFunction);
    if (function == "SIGMOID")
    {
        m_function = EFunction::Sigmoid;
    }
    else if (function == "LINEAR_EXACT")
    {
        m_function = EFunction::LinearExact;
    }
    else if (function.IsEmpty() || function == "LINEAR")
    {
        m_function = EFunction::Linear;
    }
    else
    {
        return NoNumber(kVoiLutFunction, function);
    }
    // The linear function has a division by the width less one.
    return m_width > 0 && (m_function != EFunction::Linear || m_width >= 1)
               ? CString()
               : TagAndName(kWindowWidth) + " is too small";
}

CString CGrayScale::ReadWindow(const CFrameAttributes& attributes)
{
    const CString center = attributes.FirstText(kFrameVoiLut, kWindowCenter);
    const CString width = attributes.FirstText(kFrameVoiLut, kWindowWidth);
    if (center.IsEmpty() && width.IsEmpty())
    {
        return CString();
    }
    const std::optional<double> wantedCenter = DecimalNumber(center);
    const std::optional<double> wantedWidth = DecimalNumber(width);
    if (!wantedCenter.has_value())
    {
        return NoNumber(kWindowCenter, center);
    }
    m_center = *wantedCenter;
    m_width = wantedWidth.value_or(0);
    const CString reason = ReadFunction(attributes);
    return reason.Find(TagAndName(kWindowWidth)) == 0 ? NoNumber(kWindowWidth, width) : reason;
}

CString CGrayScale::ReadTable(const CFrameAttributes& attributes, bool isSigned)
{
    const CDcmElementSet* items = ItemsOf(attributes.Find(kFrameVoiLut, kVoiLut));
    if (items == nullptr)
    {
        return CString();
    }
    // What goes into the table are modality values, which an intercept may take below zero.
    const bool isNegative = !m_modalityTable.has_value() && (isSigned || m_intercept < 0);
    CString reason = m_table.Read(*items, kLutDescriptor, kLutData, isNegative);
    m_function = reason.IsEmpty() ? EFunction::Table : EFunction::Range;
    return reason;
}

void CGrayScale::SetRange(double lowest, double highest)
{
    m_function = EFunction::LinearExact;
    m_center = (lowest + highest) / 2;
    m_width = std::abs(highest - lowest);
}

double CGrayScale::ModalityValue(std::int64_t stored) const
{
    return m_modalityTable.has_value() ? m_modalityTable->At(stored)
                                       : static_cast<double>(stored) * m_slope + m_intercept;
}

double CGrayScale::Gray(double value) const
{
    constexpr double kFarthest = 1e9;
    double gray = 0;
    switch (m_function)
    {
    case EFunction::Linear:
        // A width of 1 is a threshold.
        gray = m_width == 1 ? (value > m_center - 0.5 ? 1 : 0) : (value - (m_center - 0.5)) / (m_width - 1) + 0.5;
        break;
    case EFunction::Range:
    case EFunction::LinearExact:
        gray = m_width == 0 ? 0 : (value - m_center) / m_width + 0.5;
        break;
    case EFunction::Sigmoid:
        gray = 1 / (1 + std::exp(-4 * (value - m_center) / m_width));
        break;
    case EFunction::Table:
        gray = static_cast<double>(m_table.At(std::llround(std::clamp(value, -kFarthest, kFarthest)))) /
               m_table.HighestEntry();
        break;
    }
    // Huge numbers may have become NaN, which compares false and becomes black.
    return gray > 0 ? std::min(gray, 1.0) : 0;
}
