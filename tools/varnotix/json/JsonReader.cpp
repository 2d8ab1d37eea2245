#include "json/JsonReader.h"

#include "files/Input.h"
#include "json/Base64.h"
#include "json/BulkUri.h"
#include "json/PixelItems.h"
#include "object/Attributes.h"
#include "object/ElementMaker.h"
#include "text/CharacterSet.h"

#include <algorithm>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr std::size_t kMostLevels = static_cast<std::size_t>(CDcmParser::kMaxDepth) + 1;
constexpr const char* kNoPlace = "this value has no place here";

CSharedBytes Shared(std::string_view bytes)
{
    return CSharedBytes::Copy(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
}

void AddSorted(std::vector<std::unique_ptr<CDcmElement>>& elements, CDcmElementSet& set)
{
    std::sort(elements.begin(), elements.end(),
              [](const auto& left, const auto& right) { return left->Tag() < right->Tag(); });
    for (std::size_t i = 0; i < elements.size(); ++i)
    {
        if (i > 0 && elements[i]->Tag() == elements[i - 1]->Tag())
        {
            throw CJsonFault(std::string(TagName(elements[i]->Tag()).View()) + " is there twice");
        }
    }
    for (std::unique_ptr<CDcmElement>& element : elements)
    {
        set.Add(element.release());
    }
    elements.clear();
}

} // namespace

void CJsonReader::Read(std::string_view json, CDcmElementSet& store)
{
    try
    {
        ParseJson(json, *this);
        if (!m_isDone)
        {
            throw CJsonFault("the document holds no object");
        }
    }
    catch (const CJsonFault& fault)
    {
        const std::string place = Place();
        throw CJsonFault(place.empty() ? fault.what() : place + ": " + fault.what());
    }
    AddSorted(m_object, store);
}

/// The path of the attribute that is being read.
std::string CJsonReader::Place() const
{
    std::string place;
    for (std::size_t i = 0; i < m_attributes.size(); ++i)
    {
        const SAttribute& attribute = m_attributes[i];
        place += (i > 0 ? "." : "") + std::string(TagName(attribute.tag).View());
        if (i + 1 < m_attributes.size())
        {
            place += '[' + std::to_string(attribute.items.size() + 1) + ']';
        }
    }
    return place;
}

void CJsonReader::Null()
{
    TakeScalar({SJsonValue::EKind::Null});
}

void CJsonReader::Number(std::string spelling)
{
    TakeScalar({SJsonValue::EKind::Number, std::move(spelling)});
}

void CJsonReader::Text(std::string text)
{
    TakeScalar({SJsonValue::EKind::Text, std::move(text)});
}

void CJsonReader::TakeScalar(SJsonValue value)
{
    const bool isText = value.kind == SJsonValue::EKind::Text;
    const EPlace place = m_places.empty() ? EPlace::Array : m_places.back();
    if (place == EPlace::Values)
    {
        m_attributes.back().values.push_back(std::move(value));
    }
    else if (place == EPlace::Name && (isText || value.kind == SJsonValue::EKind::Null))
    {
        const std::string& group = m_attributes.back().member;
        m_groups[group == "Alphabetic" ? 0 : group == "Ideographic" ? 1 : 2] = value.text; // They come in any order.
    }
    else if (place == EPlace::Attribute)
    {
        SAttribute& attribute = m_attributes.back();
        const bool isTextMember =
            attribute.member == "vr" || attribute.member == "InlineBinary" || attribute.member == "BulkDataURI";
        if ((isTextMember && !isText) || attribute.member == "Value")
        {
            throw CJsonFault("\"" + attribute.member + "\" has a value of the wrong kind");
        }
        if (attribute.member == "vr")
        {
            attribute.vr = std::move(value.text);
        }
        else if (attribute.member == "BulkDataURI")
        {
            attribute.uri = std::move(value.text);
        }
        else if (attribute.member == "InlineBinary")
        {
            const std::optional<CSharedBytes> bytes = DecodeBase64(value.text);
            if (!bytes.has_value())
            {
                throw CJsonFault("\"InlineBinary\" is not Base64");
            }
            attribute.bytes = *bytes;
            attribute.hasBytes = true;
        }
    }
    else
    {
        throw CJsonFault(kNoPlace);
    }
}

void CJsonReader::BeginObject()
{
    const EPlace place = m_places.empty() ? EPlace::Array : m_places.back();
    if (place == EPlace::Array)
    {
        if (m_isDone)
        {
            throw CJsonFault("the document holds more than one object");
        }
        BeginDataSet();
    }
    else if (place == EPlace::DataSet)
    {
        m_places.push_back(EPlace::Attribute);
        m_attributes.emplace_back();
        m_attributes.back().tag = m_tag;
    }
    else if (place == EPlace::Values)
    {
        m_places.push_back(EPlace::ValueObject);
    }
    else
    {
        throw CJsonFault(kNoPlace);
    }
}

void CJsonReader::BeginDataSet()
{
    if (m_dataSets.size() == kMostLevels)
    {
        throw CJsonFault("the sequences are too deep");
    }
    m_places.push_back(EPlace::DataSet);
    m_dataSets.emplace_back();
}

void CJsonReader::Key(const std::string& name)
{
    if (m_places.back() == EPlace::ValueObject)
    {
        const bool isName = name == "Alphabetic" || name == "Ideographic" || name == "Phonetic";
        m_places.pop_back();
        if (isName)
        {
            m_groups = {};
            m_places.push_back(EPlace::Name);
        }
        else
        {
            BeginDataSet();
        }
    }
    if (m_places.back() == EPlace::DataSet)
    {
        const std::optional<DWORD> tag = Tag::Parse(name.substr(0, 4), name.size() == 8 ? name.substr(4) : "");
        if (!tag)
        {
            throw CJsonFault("'" + name.substr(0, 60) + "' is not a tag of eight hexadecimal digits");
        }
        m_tag = *tag;
        return;
    }
    if (m_places.back() == EPlace::Name && name != "Alphabetic" && name != "Ideographic" && name != "Phonetic")
    {
        throw CJsonFault("'" + name.substr(0, 60) + "' is not a group of a name");
    }
    m_attributes.back().member = name;
}

void CJsonReader::EndObject()
{
    switch (m_places.back())
    {
    case EPlace::DataSet:
        EndDataSet();
        return;
    case EPlace::ValueObject:
        // No members: an empty item, or an empty name.
        m_attributes.back().values.push_back({SJsonValue::EKind::Item});
        m_attributes.back().items.emplace_back();
        break;
    case EPlace::Name:
    {
        std::string name = m_groups[0] + '=' + m_groups[1] + '=' + m_groups[2];
        name.erase(name.find_last_not_of('=') + 1);
        m_attributes.back().values.push_back({SJsonValue::EKind::Name, std::move(name)});
        break;
    }
    default:
        if (std::unique_ptr<CDcmElement> element = MakeElement(m_attributes.back()))
        {
            m_dataSets.back().push_back(std::move(element));
        }
        m_attributes.pop_back();
    }
    m_places.pop_back();
}

void CJsonReader::EndDataSet()
{
    CElements elements = std::move(m_dataSets.back());
    m_dataSets.pop_back();
    m_places.pop_back();
    if (m_dataSets.empty())
    {
        m_object = std::move(elements);
        m_isDone = true;
        return;
    }
    m_attributes.back().values.push_back({SJsonValue::EKind::Item});
    m_attributes.back().items.push_back(std::move(elements));
}

void CJsonReader::BeginArray()
{
    if (m_places.empty() && !m_isDone)
    {
        m_places.push_back(EPlace::Array);
    }
    else if (!m_places.empty() && m_places.back() == EPlace::Attribute && m_attributes.back().member == "Value")
    {
        m_places.push_back(EPlace::Values);
    }
    else
    {
        throw CJsonFault(kNoPlace);
    }
}

void CJsonReader::EndArray()
{
    m_places.pop_back();
}

/// @return null for an attribute that objects do not hold.
std::unique_ptr<CDcmElement> CJsonReader::MakeElement(SAttribute& attribute)
{
    const DWORD tag = attribute.tag;
    if (Tag::IsGroupLength(tag))
    {
        return nullptr; // The write makes its own.
    }
    if (Tag::Group(tag) == 0 || Tag::Group(tag) == Tag::kItemGroup)
    {
        throw CJsonFault("the group has no place in a file");
    }
    const std::string letters(attribute.vr.empty() ? ListedVr(tag, false).View() : attribute.vr);
    if (!letters.empty() && !IsVr(letters))
    {
        throw CJsonFault("'" + letters.substr(0, 60) + "' is not a VR");
    }
    std::unique_ptr<CDcmElement> element = ::MakeElement(tag, letters);
    const int forms =
        (attribute.values.empty() ? 0 : 1) + (attribute.hasBytes ? 1 : 0) + (attribute.uri.empty() ? 0 : 1);
    if (forms > 1)
    {
        throw CJsonFault("it has more than one of \"Value\", \"InlineBinary\" and \"BulkDataURI\"");
    }
    if (element->Vr() == VR_SQ)
    {
        FillSequence(*element, attribute);
    }
    else if (attribute.hasBytes)
    {
        FillBytes(element, attribute);
    }
    else if (!attribute.uri.empty())
    {
        FillFrom(element, attribute.uri);
    }
    else
    {
        element->SetRawBytes(Shared(BytesOfValues(element->VrLetters(), attribute.values)));
    }
    return element;
}

void CJsonReader::FillSequence(CDcmElement& element, SAttribute& attribute)
{
    const bool hasOnlyItems = attribute.items.size() == attribute.values.size();
    if (!hasOnlyItems || attribute.hasBytes || !attribute.uri.empty() || element.Items() == nullptr)
    {
        throw CJsonFault("the values of a sequence are items");
    }
    CDcmElementSet& items = *element.Items();
    items.SetKeepsItems(true);
    for (CElements& item : attribute.items)
    {
        items.BeginItem();
        AddSorted(item, items);
    }
    items.SelectItem(0);
}

void CJsonReader::FillBytes(std::unique_ptr<CDcmElement>& element, const SAttribute& attribute)
{
    CDcmFrameList* frames = element->Frames();
    if (frames == nullptr)
    {
        element->SetRawBytes(attribute.bytes);
        return;
    }
    if (AreItems(attribute.bytes.Text()))
    {
        const int vr = element->Vr();
        element = PixelDataOfItems(attribute.bytes.Text());
        if (!element)
        {
            throw CJsonFault("\"InlineBinary\" does not hold the items of encapsulated pixel data");
        }
        element->ForcePixelVr(vr);
        return;
    }
    frames->AddFrame(attribute.bytes);
    frames->SetReadForm(CDcmFrameList::FORM_NATIVE);
}

void CJsonReader::FillFrom(std::unique_ptr<CDcmElement>& element, const std::string& uri)
{
    const std::optional<SBulkPlace> place = BulkPlaceOf(uri);
    if (!place.has_value())
    {
        throw CJsonFault("'" + uri.substr(0, 200) + "' is not a reference into a file");
    }
    const CDcmIOD& object = FileOf(place->file);
    const CDcmElement* found = FindBulk(object.ElementStore(), place->place);
    if (found == nullptr || found->Items() != nullptr)
    {
        throw CJsonFault("'" + uri.substr(0, 200) + "' does not lead to a value");
    }
    if (found->Frames() != nullptr && element->Frames() != nullptr)
    {
        element = std::make_unique<CDcmElement>(*found);
        element->SetItem(0);
        m_pixelSyntax = TextOf(object.ElementStore(), Tag::kTransferSyntaxUid);
        return;
    }
    element->SetRawBytes(Shared(found->ValueBytes().View()));
}

const CDcmIOD& CJsonReader::FileOf(const CString& path)
{
    std::unique_ptr<CDcmIOD>& object = m_files[std::string(path.View())];
    if (!object)
    {
        object = std::make_unique<CDcmIOD>();
        if (!ReadObject(path, *object, CReport(false, false)))
        {
            throw CJsonFault("the referenced file cannot be read");
        }
    }
    return *object;
}
