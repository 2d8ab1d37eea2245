// Only this source sees the parser's headers, which are slow to compile.

#include "json/JsonParser.h"

#include <nlohmann/json.hpp>

namespace
{

using CJson = nlohmann::json;

class CEventForwarder final : public nlohmann::json_sax<CJson>
{
public:
    explicit CEventForwarder(IJsonEvents& events) : m_events(events) {}

    bool null() override
    {
        m_events.Null();
        return true;
    }
    bool boolean(bool value) override
    {
        throw CJsonFault(value ? "'true' has no place here" : "'false' has no place here");
    }
    bool number_integer(number_integer_t value) override
    {
        m_events.Number(std::to_string(value));
        return true;
    }
    bool number_unsigned(number_unsigned_t value) override
    {
        m_events.Number(std::to_string(value));
        return true;
    }
    bool number_float(number_float_t, const string_t& spelling) override
    {
        m_events.Number(spelling);
        return true;
    }
    bool string(string_t& text) override
    {
        m_events.Text(std::move(text));
        return true;
    }
    bool binary(binary_t&) override { return false; } // JSON has none.
    bool start_object(std::size_t) override
    {
        m_events.BeginObject();
        return true;
    }
    bool key(string_t& name) override
    {
        m_events.Key(name);
        return true;
    }
    bool end_object() override
    {
        m_events.EndObject();
        return true;
    }
    bool start_array(std::size_t) override
    {
        m_events.BeginArray();
        return true;
    }
    bool end_array() override
    {
        m_events.EndArray();
        return true;
    }
    bool parse_error(std::size_t position, const std::string& token, const CJson::exception&) override
    {
        throw CJsonFault("not JSON: byte " + std::to_string(position) + ", at '" + token.substr(0, 40) + "'");
    }

private:
    IJsonEvents& m_events;
};

} // namespace

void ParseJson(std::string_view json, IJsonEvents& events)
{
    CEventForwarder forwarder(events);
    CJson::sax_parse(json.begin(), json.end(), &forwarder);
}
