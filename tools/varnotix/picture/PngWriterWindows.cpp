// Replaces PngWriter.cpp on Windows without the PNG library: the Windows Imaging Component writes the file.

#include "picture/PngWriter.h"

#include <initguid.h>
#include <limits>
#include <wincodec.h>
#include <windows.h>

namespace
{

/// A reference to an object of the component.
template <class INTERFACE>
class CReference
{
public:
    CReference() = default;
    ~CReference()
    {
        if (m_object != nullptr)
        {
            m_object->Release();
        }
    }
    CReference(const CReference&) = delete;
    CReference& operator=(const CReference&) = delete;

    INTERFACE* operator->() const { return m_object; }
    INTERFACE* Get() const { return m_object; }
    INTERFACE** Address() { return &m_object; }

private:
    INTERFACE* m_object = nullptr;
};

/// The component needs this on each thread that uses it.
class CComThread
{
public:
    CComThread() : m_result(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~CComThread()
    {
        if (SUCCEEDED(m_result))
        {
            CoUninitialize();
        }
    }
    CComThread(const CComThread&) = delete;
    CComThread& operator=(const CComThread&) = delete;

private:
    HRESULT m_result;
};

/// The rows as the component takes them: blue first in eight bits, red first in sixteen.
std::vector<BYTE> RowsOf(const SPicture& picture)
{
    const bool isByte = picture.highest == 255;
    const bool isReversed = isByte && picture.channels == 3;
    std::vector<BYTE> rows;
    rows.reserve(picture.values.size() * (isByte ? 1 : 2));
    for (std::size_t i = 0; i < picture.values.size(); ++i)
    {
        const std::uint16_t value = picture.values[isReversed ? i + 2 - 2 * (i % 3) : i];
        rows.push_back(static_cast<BYTE>(value));
        if (!isByte)
        {
            rows.push_back(static_cast<BYTE>(value >> 8U));
        }
    }
    return rows;
}

const GUID& FormatOf(const SPicture& picture)
{
    if (picture.channels == 1)
    {
        return picture.highest == 255 ? GUID_WICPixelFormat8bppGray : GUID_WICPixelFormat16bppGray;
    }
    return picture.highest == 255 ? GUID_WICPixelFormat24bppBGR : GUID_WICPixelFormat48bppRGB;
}

HRESULT WriteFrame(IWICBitmapFrameEncode& frame, const SPicture& picture)
{
    std::vector<BYTE> rows = RowsOf(picture);
    if (rows.size() > std::numeric_limits<UINT>::max())
    {
        return E_OUTOFMEMORY;
    }
    const GUID wanted = FormatOf(picture);
    GUID format = wanted;
    HRESULT result = frame.Initialize(nullptr);
    result =
        FAILED(result) ? result : frame.SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height));
    result = FAILED(result) ? result : frame.SetPixelFormat(&format);
    if (FAILED(result) || !IsEqualGUID(format, wanted))
    {
        return FAILED(result) ? result : WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT;
    }
    const auto size = static_cast<UINT>(rows.size());
    result = frame.WritePixels(static_cast<UINT>(picture.height), size / static_cast<UINT>(picture.height), size,
                               rows.data());
    return FAILED(result) ? result : frame.Commit();
}

HRESULT Encode(const SPicture& picture, IStream& stream)
{
    CReference<IWICImagingFactory> factory;
    CReference<IWICBitmapEncoder> encoder;
    CReference<IWICBitmapFrameEncode> frame;
    HRESULT result = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                      reinterpret_cast<void**>(factory.Address()));
    result = FAILED(result) ? result : factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Address());
    result = FAILED(result) ? result : encoder->Initialize(&stream, WICBitmapEncoderNoCache);
    result = FAILED(result) ? result : encoder->CreateNewFrame(frame.Address(), nullptr);
    result = FAILED(result) ? result : WriteFrame(*frame.Get(), picture);
    return FAILED(result) ? result : encoder->Commit();
}

HRESULT TakeBytes(IStream& stream, std::vector<BYTE>& file)
{
    STATSTG state{};
    HGLOBAL memory = nullptr;
    HRESULT result = stream.Stat(&state, STATFLAG_NONAME);
    result = FAILED(result) ? result : GetHGlobalFromStream(&stream, &memory);
    const void* bytes = FAILED(result) ? nullptr : GlobalLock(memory);
    if (bytes == nullptr)
    {
        return FAILED(result) ? result : E_OUTOFMEMORY;
    }
    const auto* first = static_cast<const BYTE*>(bytes);
    file.assign(first, first + static_cast<std::size_t>(state.cbSize.QuadPart));
    GlobalUnlock(memory);
    return S_OK;
}

} // namespace

bool HasPngWriter()
{
    return true;
}

CString EncodePng(const SPicture& picture, std::vector<BYTE>& file)
{
    const CComThread thread;
    CReference<IStream> stream;
    HRESULT result = CreateStreamOnHGlobal(nullptr, TRUE, stream.Address());
    result = FAILED(result) ? result : Encode(picture, *stream.Get());
    result = FAILED(result) ? result : TakeBytes(*stream.Get(), file);
    CString reason;
    if (FAILED(result))
    {
        reason.Format("the Windows Imaging Component failed (code %08lX)", static_cast<unsigned long>(result));
    }
    return reason;
}
