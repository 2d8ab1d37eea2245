#include "Toolkits.h"

#include "Varnotix/iod/DcmIOD.h"

namespace
{
class CVarnotixObject : public CReadObject
{
public:
    explicit CVarnotixObject(const CByteArray& bytes) { m_iod.Import(bytes); }

    bool IsEmpty() const { return m_iod.GetCount() == 0; }

    std::size_t Write(std::string* copy) override
    {
        CByteArray bytes;
        m_iod.ExportFileFormat(bytes);
        const auto size = static_cast<std::size_t>(bytes.GetSize());
        if (copy != nullptr)
        {
            copy->assign(reinterpret_cast<const char*>(bytes.GetData()), size);
        }
        return size;
    }

private:
    CDcmIOD m_iod;
};
} // namespace

std::unique_ptr<CReadObject> ReadWithVarnotix(const SStream& stream)
{
    auto object = std::make_unique<CVarnotixObject>(*stream.array);
    return object->IsEmpty() ? nullptr : std::move(object);
}

const std::vector<SToolkit>& Toolkits()
{
    static const std::vector<SToolkit> toolkits{
        {"varnotix", ReadWithVarnotix},
#ifdef VARNOTIX_HAVE_DCMTK
        {"dcmtk", ReadWithDcmtk},
#endif
#ifdef VARNOTIX_HAVE_GDCM
        {"gdcm", ReadWithGdcm},
#endif
    };
    return toolkits;
}
