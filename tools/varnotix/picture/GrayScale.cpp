#include "picture/GrayScale.h"

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
constexpr DWORD kVoiLut = 0x00283010;
constexpr DWORD kSharedGroups = 0x52009229;
constexpr DWORD kFrameGroups = 0x52009230;

CString FirstTextOf(const CDcmElementSet& store, DWORD tag)
{
    const CString text = TextOf(store, tag);
    const int end = text.Find('\\');
    return end < 0 ? text : text.Left(end);
}

CString NoNumber(DWORD tag, const CString& text)
{
    return TagAndName(tag) + " '" + text + "' cannot be used";
}

} // namespace

CString CGrayScale::Read(const CDcmElementSet& store, const CString& name, const CReport& report)
{
    if (store.Find(kModalityLut) != nullptr)
    {
        report.Say(name + ": drawn without its " + TagAndName(kModalityLut));
    }
    CString reason = ReadRescale(store);
    if (!reason.IsEmpty())
    {
        return reason;
    }
    const CString noWindow = ReadWindow(store);
    if (!noWindow.IsEmpty())
    {
        report.Say(name + ": " + noWindow + ": drawn over the range of its values");
    }
    else if (!m_hasWindow && store.Find(kVoiLut) != nullptr)
    {
        report.Say(name + ": drawn over the range of its values, without its " + TagAndName(kVoiLut));
    }
    else if (!m_hasWindow && (store.Find(kSharedGroups) != nullptr || store.Find(kFrameGroups) != nullptr))
    {
        report.Say(name + ": drawn over the range of its values; windows of functional groups are not applied");
    }
    return CString();
}

CString CGrayScale::ReadRescale(const CDcmElementSet& store)
{
    const CString slope = FirstTextOf(store, kRescaleSlope);
    const CString intercept = FirstTextOf(store, kRescaleIntercept);
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

CString CGrayScale::ReadWindow(const CDcmElementSet& store)
{
    const CString center = FirstTextOf(store, kWindowCenter);
    const CString width = FirstTextOf(store, kWindowWidth);
    if (center.IsEmpty() && width.IsEmpty())
    {
        return CString();
    }
    const CString function = TextOf(store, kVoiLutFunction);
    if (function == "SIGMOID")
    {
        m_function = EFunction::Sigmoid;
    }
    else if (function == "LINEAR_EXACT")
    {
        m_function = EFunction::LinearExact;
    }
    else if (!function.IsEmpty() && function != "LINEAR")
    {
        return NoNumber(kVoiLutFunction, function);
    }
    const std::optional<double> wantedCenter = DecimalNumber(center);
    const std::optional<double> wantedWidth = DecimalNumber(width);
    if (!wantedCenter.has_value())
    {
        return NoNumber(kWindowCenter, center);
    }
    if (!wantedWidth.has_value() || *wantedWidth <= 0 || (m_function == EFunction::Linear && *wantedWidth < 1))
    {
        return NoNumber(kWindowWidth, width);
    }
    m_center = *wantedCenter;
    m_width = *wantedWidth;
    m_hasWindow = true;
    return CString();
}

void CGrayScale::SetRange(double lowest, double highest)
{
    const double first = lowest * m_slope + m_intercept;
    const double last = highest * m_slope + m_intercept;
    m_function = EFunction::LinearExact;
    m_center = (first + last) / 2;
    m_width = std::abs(last - first);
}

BYTE CGrayScale::Gray(double stored) const
{
    constexpr double kWhite = 255;
    const double value = stored * m_slope + m_intercept;
    double gray = 0;
    switch (m_function)
    {
    case EFunction::Linear:
        // A width of 1 is a threshold.
        gray = m_width == 1 ? (value > m_center - 0.5 ? 1 : 0) : (value - (m_center - 0.5)) / (m_width - 1) + 0.5;
        break;
    case EFunction::LinearExact:
        gray = m_width == 0 ? 0 : (value - m_center) / m_width + 0.5;
        break;
    case EFunction::Sigmoid:
        gray = 1 / (1 + std::exp(-4 * (value - m_center) / m_width));
        break;
    }
    // Huge numbers may have become NaN, which compares false and becomes black.
    return gray > 0 ? static_cast<BYTE>(std::lround(std::min(gray, 1.0) * kWhite)) : BYTE{0};
}
