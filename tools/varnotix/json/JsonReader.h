/// Objects from documents in the DICOM JSON model (PS3.18 annex F).
#pragma once

#include "console/Report.h"
#include "json/JsonParser.h"
#include "json/JsonValue.h"

#include <array>
#include <map>
#include <memory>
#include <vector>

/// Reads one object; its texts are in UTF-8 until EncodeTexts.
///
/// A document holds one object, or an array of one. Members other than "vr", "Value", "InlineBinary" and "BulkDataURI"
/// are passed over when they are texts or numbers. An attribute without "vr" has the VR of the dictionary. References
/// of the form that BulkUri.h describes are followed; others are refused.
class CJsonReader final : public IJsonEvents
{
public:
    /// Throws CJsonFault, with the place of the fault.
    void Read(std::string_view json, CDcmElementSet& store);

    /// The Transfer Syntax UID of the file that encapsulated pixel data was taken from; empty when there is none.
    const CString& PixelSyntax() const { return m_pixelSyntax; }

    void Null() override;
    void Number(std::string spelling) override;
    void Text(std::string text) override;
    void BeginObject() override;
    void Key(const std::string& name) override;
    void EndObject() override;
    void BeginArray() override;
    void EndArray() override;

private:
    using CElements = std::vector<std::unique_ptr<CDcmElement>>;

    enum class EPlace
    {
        Array,   ///< The array around the object.
        DataSet, ///< The object, or an item.
        Attribute,
        Values,      ///< The array of an attribute's values.
        ValueObject, ///< An item or a name, of which nothing has come yet.
        Name
    };

    struct SAttribute
    {
        DWORD tag = 0;
        std::string vr;
        std::string member; // The one that the next value belongs to.
        std::vector<SJsonValue> values;
        std::vector<CElements> items;
        bool hasBytes = false;
        CSharedBytes bytes;
        std::string uri;
    };

    void TakeScalar(SJsonValue value);
    void BeginDataSet();
    void EndDataSet();
    std::unique_ptr<CDcmElement> MakeElement(SAttribute& attribute);
    void FillSequence(CDcmElement& element, SAttribute& attribute);
    void FillBytes(std::unique_ptr<CDcmElement>& element, const SAttribute& attribute);
    void FillFrom(std::unique_ptr<CDcmElement>& element, const std::string& uri);
    const CDcmIOD& FileOf(const CString& path);
    std::string Place() const;

    std::vector<EPlace> m_places;
    std::vector<CElements> m_dataSets;
    std::vector<SAttribute> m_attributes;
    std::array<std::string, 3> m_groups; // Of the name that is being read.
    DWORD m_tag = 0;                     // The last key of a data set.
    bool m_isDone = false;
    CElements m_object;
    CString m_pixelSyntax;
    std::map<std::string, std::unique_ptr<CDcmIOD>> m_files; // Those that references name.
};
