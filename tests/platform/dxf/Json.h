// Reads the facts that stand beside the drawings. Numbers are doubles; a missing member reads as null.
#pragma once
#include <map>
#include <string>
#include <vector>

class Json {
public:
    // Null for text that is no JSON.
    static Json Parse(const std::string& text);

    bool isNull() const { return m_kind == 'n'; }
    bool isObject() const { return m_kind == 'o'; }
    bool isNumber() const { return m_kind == 'd'; }
    bool isText() const { return m_kind == 's'; }
    double number() const { return m_number; }
    const std::string& text() const { return m_text; }
    const std::vector<Json>& items() const { return m_items; }
    const std::map<std::string, Json>& members() const { return m_members; }
    const Json& operator[](const std::string& name) const;
    std::vector<std::string> texts() const;

private:
    static bool ParseValue(const std::string& text, size_t& at, Json& value);
    static bool ParseText(const std::string& text, size_t& at, std::string& value);

    char m_kind = 'n';   // null, number (d), text (s), array (a), object (o)
    double m_number = 0;
    std::string m_text;
    std::vector<Json> m_items;
    std::map<std::string, Json> m_members;
};
