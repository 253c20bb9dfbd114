// Specifications read from JSON as `show --json` writes it, whole or in part.
#pragma once

#include <optional>

#include <nlohmann/json.hpp>

#include "base/Problem.h"
#include "model/Criteria.h"

class JsonReading {
public:
    // Where `bytes` come from, for the problems: a path of the module's own.
    JsonReading(std::string_view bytes, CString file);

    // Of the specification that the document was written from, as far as it says so.
    const std::optional<CString>& Name() const { return m_name; }
    const std::optional<CString>& Identity() const { return m_identity; }

    // Gives the specification the fields that the document has; others stay. A table or rows are as
    // the document has them, whole, in the order that they are kept in. Where there is a problem
    // the specification is of no use afterwards.
    void ApplyTo(CDesignSpecification& specification);

    // Everything that was wrong with the document, each with the line, or with the place of the
    // value as a JSON pointer.
    const designspec::Problems& Problems() const { return m_problems; }

private:
    using Json = nlohmann::ordered_json;
    using Fields = std::span<const designspec::Field>;

    // A part of the document and where it stands.
    struct Part {
        const Json& json;
        std::string pointer;

        Part At(const std::string& key) const { return {json.at(key), pointer + "/" + key}; }
        Part At(std::size_t i) const { return {json.at(i), pointer + "/" + std::to_string(i)}; }
    };

    void Parse(std::string_view bytes);
    void ReadHead();
    void Wrong(const std::string& pointer, const CString& text, int line = 0);
    bool IsObject(const Part& part);
    void TellUnknown(const Part& part, const std::vector<CString>& known);
    void ReadFields(const Part& part, Fields fields, void* object, bool all);
    void ReadField(const Part& part, const designspec::Field& field, void* object);
    void ReadRows(const Part& part, const designspec::Field& rows, void* object);
    void ReadValue(const Part& part, const designspec::Field& field, void* object);

    CString m_file;
    Json m_document;
    std::optional<CString> m_name, m_identity;
    designspec::Problems m_problems;
};
