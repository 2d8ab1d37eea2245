#include "Toolkits.h"

#include "Varnotix/iod/DcmIOD.h"

namespace
{
class CVarnotixObject : public CReadObject
{
public:
    CVarnotixObject(const CByteArray& bytes, EStreamRules rules)
    {
        m_iod.StreamRules(rules);
        m_iod.Import(bytes);
    }

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

template <EStreamRules RULES>
std::unique_ptr<CReadObject> Read(const SStream& stream)
{
    auto object = std::make_unique<CVarnotixObject>(*stream.array, RULES);
    return object->IsEmpty() ? nullptr : std::move(object);
}
} // namespace

const std::vector<SToolkit>& Toolkits()
{
    static const std::vector<SToolkit> toolkits{
        {"varnotix", Read<STREAM_RULES_CLASSIC>},
        {"standard", Read<STREAM_RULES_STANDARD>},
#ifdef VARNOTIX_HAVE_DCMTK
        {"dcmtk", ReadWithDcmtk},
#endif
#ifdef VARNOTIX_HAVE_GDCM
        {"gdcm", ReadWithGdcm},
#endif
    };
    return toolkits;
}
