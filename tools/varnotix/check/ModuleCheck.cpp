// The attributes that the modules of an object's class require.

#include "check/ObjectCheck.h"
#include "object/Attributes.h"
#include "object/ObjectRules.h"

namespace Tag = Varnotix::Tag;
using Varnotix::CElementPath;
using Varnotix::SPathStep;

namespace
{

constexpr std::string_view kAnyClass = "-";

/// True for an element without items, frames or any byte but padding.
bool IsEmpty(const CDcmElement& element)
{
    if (element.Items() != nullptr)
    {
        return element.Items()->ItemCount() == 0;
    }
    if (element.Frames() != nullptr && element.Frames()->GetCount() > 0)
    {
        return false;
    }
    constexpr std::string_view kPadding(" \0", 2);
    const CValueBytes bytes = element.ValueBytes();
    // A number may consist of zero bytes.
    return element.Texts() != nullptr ? bytes.View().find_first_not_of(kPadding) == std::string_view::npos
                                      : bytes.Size() == 0;
}

/// Follows the rules through an object and its items.
class CModuleCheck
{
public:
    explicit CModuleCheck(CFindings& findings) : m_findings(findings) {}

    void Check(CDcmElementSet& set, int item, const CAttributeRules& rules)
    {
        for (const auto& [tag, attribute] : rules)
        {
            m_path.Append({tag, CString(), SPathStep::kNoItem});
            if (CDcmElement* element = Varnotix::FindInSet(set, item, tag))
            {
                CheckPresent(*element, attribute);
            }
            else if (attribute.isMandatory &&
                     (attribute.type == EAttributeType::Type1 || attribute.type == EAttributeType::Type2))
            {
                Report("missing", attribute);
            }
            m_path.RemoveLast();
        }
    }

private:
    void CheckPresent(CDcmElement& element, const SAttributeRules& attribute)
    {
        if (IsEmpty(element))
        {
            if (attribute.type <= EAttributeType::Type1C)
            {
                Report("empty", attribute);
            }
            return;
        }
        CDcmElementSet* items = element.Items();
        const int count = items != nullptr && !attribute.items.empty() ? items->ItemCount() : 0;
        for (int item = 1; item <= count; ++item)
        {
            m_path.SelectItem(item);
            Check(*items, item, attribute.items);
        }
        m_path.SelectItem(SPathStep::kNoItem);
    }

    void Report(const char* fault, const SAttributeRules& attribute)
    {
        m_findings.Error(ShownPath(m_path), CString(fault) + ", but type " + TypeText(attribute.type) +
                                                " in the module " + attribute.module.c_str());
    }

    CFindings& m_findings;
    CElementPath m_path;
};

} // namespace

void CheckModules(CDcmElementSet& set, CFindings& findings)
{
    const CString sopClass = TextOf(set, Tag::kSopClassUid);
    if (sopClass.IsEmpty())
    {
        if (TextOf(set, Tag::kMediaStorageSopClassUid) != "1.2.840.10008.1.3.10")
        {
            findings.Error(ShownTag(Tag::kSopClassUid), "missing, so the modules of the object are not checked");
        }
        return;
    }
    if (const CAttributeRules* rules = RulesOfClass(sopClass.View()))
    {
        CModuleCheck(findings).Check(set, 0, *rules);
        return;
    }
    const int row = CDcmRegistry::Global().UidEnum(sopClass);
    const CString name = row < 0 ? sopClass : CDcmRegistry::Global().UidName(row);
    findings.Warning(ShownTag(Tag::kSopClassUid),
                     "of the modules of " + name + " only those of every object of a study are checked");
    const CAttributeRules* rules = RulesOfClass(kAnyClass);
    // Objects without a study, such as color palettes, do not describe a patient either.
    if (rules != nullptr && set.Find(Tag::kStudyInstanceUid) != nullptr)
    {
        CModuleCheck(findings).Check(set, 0, *rules);
    }
}
