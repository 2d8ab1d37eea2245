#include "Toolkits.h"

#include <dcmtk/config/osconfig.h>
#include <dcmtk/dcmdata/dcistrmb.h>
#include <dcmtk/dcmdata/dcostrmb.h>
#include <dcmtk/dcmdata/dctk.h>

namespace
{
class CDcmtkObject : public CReadObject
{
public:
    bool Read(const SStream& stream)
    {
        m_size = stream.size;
        DcmInputBufferStream input;
        input.setBuffer(stream.data, static_cast<offile_off_t>(stream.size));
        input.setEos();
        m_file.transferInit();
        const bool good = m_file.read(input).good();
        m_file.transferEnd();
        return good && m_file.loadAllDataIntoMemory().good();
    }

    std::size_t Write(std::string* copy) override
    {
        // Room for all of it at once, which is the shortest way that this interface offers.
        const std::size_t room = m_size + m_size / 4 + 4096;
        const std::unique_ptr<char[]> bytes(new char[room]);
        DcmOutputBufferStream output(bytes.get(), static_cast<offile_off_t>(room));
        m_file.transferInit();
        const OFCondition result =
            m_file.write(output, m_file.getDataset()->getOriginalXfer(), EET_ExplicitLength, nullptr, EGL_withoutGL);
        m_file.transferEnd();
        void* written = nullptr;
        offile_off_t size = 0;
        output.flushBuffer(written, size);
        if (copy != nullptr)
        {
            copy->assign(static_cast<const char*>(written), static_cast<std::size_t>(size));
        }
        return result.good() ? static_cast<std::size_t>(size) : 0;
    }

private:
    DcmFileFormat m_file;
    std::size_t m_size = 0;
};
} // namespace

std::unique_ptr<CReadObject> ReadWithDcmtk(const SStream& stream)
{
    auto object = std::make_unique<CDcmtkObject>();
    return object->Read(stream) ? std::move(object) : nullptr;
}
