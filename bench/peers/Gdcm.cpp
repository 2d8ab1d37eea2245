#include "Toolkits.h"

#include <gdcmReader.h>
#include <gdcmWriter.h>

#include <istream>
#include <sstream>
#include <streambuf>

namespace
{
/// The caller's bytes as a stream that can seek, so that reading begins without a copy of them.
class CMemoryBuffer : public std::streambuf
{
public:
    explicit CMemoryBuffer(const SStream& stream)
    {
        char* const begin = const_cast<char*>(reinterpret_cast<const char*>(stream.data));
        setg(begin, begin, begin + stream.size);
    }

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override
    {
        char* const base = from == std::ios_base::beg ? eback() : from == std::ios_base::cur ? gptr() : egptr();
        const off_type target = base - eback() + offset;
        if (target < 0 || target > egptr() - eback())
        {
            return pos_type(off_type(-1));
        }
        setg(eback(), eback() + target, egptr());
        return pos_type(target);
    }

    pos_type seekpos(pos_type position, std::ios_base::openmode mode) override
    {
        return seekoff(off_type(position), std::ios_base::beg, mode);
    }
};

class CGdcmObject : public CReadObject
{
public:
    bool Read(const SStream& stream)
    {
        CMemoryBuffer buffer(stream);
        std::istream input(&buffer);
        gdcm::Reader reader;
        reader.SetStream(input);
        const bool good = reader.Read();
        m_file = &reader.GetFile();
        return good;
    }

    std::size_t Write(std::string* copy) override
    {
        std::ostringstream output;
        gdcm::Writer writer;
        writer.SetStream(output);
        writer.SetFile(*m_file);
        writer.CheckFileMetaInformationOff();
        const bool good = writer.Write();
        const auto size = static_cast<std::size_t>(output.tellp());
        if (copy != nullptr)
        {
            *copy = output.str();
        }
        return good ? size : 0;
    }

private:
    gdcm::SmartPointer<gdcm::File> m_file;
};
} // namespace

std::unique_ptr<CReadObject> ReadWithGdcm(const SStream& stream)
{
    auto object = std::make_unique<CGdcmObject>();
    return object->Read(stream) ? std::move(object) : nullptr;
}
