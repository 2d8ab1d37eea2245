#include "files/Deflate.h"

#include <climits>

#include <algorithm>
#include <vector>
#include <zlib.h>

namespace
{

constexpr int kRawDeflate = -MAX_WBITS;
constexpr UINT kStep = 1U << 16U;

// Blank images shrink up to a thousandfold, the most that deflate can do, but few are large.
constexpr ULONGLONG kMebibyte = 1U << 20U;
constexpr ULONGLONG kAlwaysInflated = 64 * kMebibyte;
constexpr ULONGLONG kLargestRatio = 250;

/// The most bytes that a deflated data set of a size may give.
ULONGLONG InflatedLimit(std::size_t size)
{
    const ULONGLONG limit = std::max(kAlwaysInflated, kLargestRatio * size);
    return std::min(limit, static_cast<ULONGLONG>(INT_MAX) - kStep);
}

z_stream StreamOver(const BYTE* bytes, std::size_t size)
{
    z_stream stream{};
    stream.next_in = const_cast<BYTE*>(bytes);
    stream.avail_in = static_cast<uInt>(size);
    return stream;
}

/// Runs one step, and appends what it gave.
int Step(z_stream& stream, int (*run)(z_stream*, int), int flush, std::vector<BYTE>& room, CFile& out)
{
    stream.next_out = room.data();
    stream.avail_out = kStep;
    const int result = run(&stream, flush);
    out.Write(room.data(), kStep - stream.avail_out);
    return result;
}

} // namespace

CString Inflate(const BYTE* bytes, std::size_t size, CFile& out, std::size_t& left)
{
    z_stream stream = StreamOver(bytes, size);
    if (inflateInit2(&stream, kRawDeflate) != Z_OK)
    {
        throw CMemoryException();
    }
    std::vector<BYTE> room(kStep);
    int result = Z_OK;
    const ULONGLONG limit = InflatedLimit(size);
    bool isTooLarge = false;
    while (result == Z_OK && !isTooLarge)
    {
        isTooLarge = out.GetLength() > limit;
        result = isTooLarge ? result : Step(stream, inflate, Z_NO_FLUSH, room, out);
    }
    left = stream.avail_in;
    inflateEnd(&stream);
    CString fault;
    if (isTooLarge)
    {
        out.SetLength(0);
        fault.Format("its deflated data set inflates to more than the %lu MiB that its size allows",
                     static_cast<unsigned long>(InflatedLimit(size) / kMebibyte));
    }
    else if (result == Z_BUF_ERROR)
    {
        fault = "its deflated data set is cut off";
    }
    else if (result != Z_STREAM_END)
    {
        fault.Format("its deflated data set is damaged at its byte %lu", static_cast<unsigned long>(size - left));
    }
    return fault;
}

void Deflate(const BYTE* bytes, std::size_t size, CFile& out)
{
    z_stream stream = StreamOver(bytes, size);
    constexpr int kMemory = 8; // The library's default.
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kRawDeflate, kMemory, Z_DEFAULT_STRATEGY) != Z_OK)
    {
        throw CMemoryException();
    }
    std::vector<BYTE> room(kStep);
    while (Step(stream, deflate, Z_FINISH, room, out) == Z_OK)
    {
    }
    const bool isOdd = stream.total_out % 2 == 1;
    deflateEnd(&stream);
    if (isOdd)
    {
        const BYTE padding = 0;
        out.Write(&padding, 1);
    }
}
