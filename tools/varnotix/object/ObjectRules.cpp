#include "object/ObjectRules.h"

#include <algorithm>

namespace
{

constexpr std::string_view kTypeTexts[] = {"1", "1C", "2", "2C", "3"};

struct SAttribute
{
    EAttributeType type;
    std::vector<DWORD> path;
};

struct SModule
{
    std::string name;
    bool isMandatory;
};

/// The file as it is; classes come before the modules that they name.
struct SObjectFile
{
    CString path;
    std::map<std::string, std::vector<SModule>, std::less<>> classes;
    std::map<std::string, std::vector<SAttribute>, std::less<>> modules;

    void TakeLine(std::string_view line);

private:
    void TakeAttribute(std::string_view type, std::string_view tags);

    std::vector<SModule>* m_class = nullptr;
    std::vector<SAttribute>* m_module = nullptr;
};

/// Cuts the word up to the next blank off the front of the line.
std::string_view TakeWord(std::string_view& line)
{
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, blank);
    line.remove_prefix(std::min(blank + 1, line.size()));
    return word;
}

void SObjectFile::TakeLine(std::string_view line)
{
    if (line.empty() || line.front() == '#')
    {
        return;
    }
    const std::string_view first = TakeWord(line);
    if (first == "class")
    {
        m_class = &classes[std::string(TakeWord(line))];
        m_module = nullptr;
    }
    else if (first == "module")
    {
        m_module = &modules[std::string(line)];
    }
    else if (m_module != nullptr)
    {
        TakeAttribute(first, line);
    }
    else if (m_class != nullptr)
    {
        m_class->push_back({std::string(line), first == "M"});
    }
}

void SObjectFile::TakeAttribute(std::string_view type, std::string_view tags)
{
    const auto place = std::find(std::begin(kTypeTexts), std::end(kTypeTexts), type);
    SAttribute attribute{static_cast<EAttributeType>(place - std::begin(kTypeTexts)), {}};
    while (!tags.empty())
    {
        const std::string_view word = TakeWord(tags);
        const auto tag = Varnotix::Tag::Parse(word.substr(0, 4), word.substr(std::min<std::size_t>(4, word.size())));
        if (!tag)
        {
            return;
        }
        attribute.path.push_back(*tag);
    }
    if (place != std::end(kTypeTexts) && !attribute.path.empty())
    {
        m_module->push_back(std::move(attribute));
    }
}

const SObjectFile& ObjectFile()
{
    static const SObjectFile file = []
    {
        SObjectFile read;
        read.path = Varnotix::ReadDataFile("objects.txt", [&read](std::string_view line) { read.TakeLine(line); });
        return read;
    }();
    return file;
}

void Merge(SAttributeRules& rules, bool isNew, EAttributeType type, const SModule& module)
{
    const bool takes =
        isNew || (module.isMandatory && !rules.isMandatory) ||
        (module.isMandatory == rules.isMandatory && (module.isMandatory ? type < rules.type : type > rules.type));
    if (takes)
    {
        rules.type = type;
        rules.isMandatory = module.isMandatory;
        rules.module = module.name;
    }
}

void AddModule(CAttributeRules& rules, const SModule& module)
{
    const auto place = ObjectFile().modules.find(module.name);
    if (place == ObjectFile().modules.end())
    {
        return;
    }
    for (const SAttribute& attribute : place->second)
    {
        CAttributeRules* level = &rules;
        for (std::size_t i = 0; i + 1 < attribute.path.size(); ++i)
        {
            level = &(*level)[attribute.path[i]].items;
        }
        const auto [entry, isNew] = level->try_emplace(attribute.path.back());
        Merge(entry->second, isNew, attribute.type, module);
    }
}

std::map<std::string, CAttributeRules, std::less<>> MakeRules()
{
    std::map<std::string, CAttributeRules, std::less<>> all;
    for (const auto& [uid, modules] : ObjectFile().classes)
    {
        CAttributeRules& rules = all[uid];
        for (const SModule& module : modules)
        {
            AddModule(rules, module);
        }
    }
    return all;
}

} // namespace

const char* TypeText(EAttributeType type)
{
    return kTypeTexts[static_cast<std::size_t>(type)].data();
}

const CAttributeRules* RulesOfClass(std::string_view sopClass)
{
    static const auto all = MakeRules();
    const auto place = all.find(sopClass);
    return place == all.end() ? nullptr : &place->second;
}

const SAttributeRules* RulesOfAttribute(const CAttributeRules& rules, const Varnotix::CElementPath& path)
{
    const CAttributeRules* level = &rules;
    const SAttributeRules* found = nullptr;
    for (const Varnotix::SPathStep& step : path.Steps())
    {
        const auto place = level->find(step.tag);
        if (place == level->end())
        {
            return nullptr;
        }
        found = &place->second;
        level = &found->items;
    }
    return found;
}

const CString& ObjectRulesPath()
{
    return ObjectFile().path;
}
