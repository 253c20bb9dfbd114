#include "model/UnknownContent.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "base/Text.h"
#include "model/Criteria.h"
#include "model/ValuePath.h"
#include "platform/xtp/PropExchangeXMLNode.h"

namespace designspec {

namespace {

bool IsCalled(const wchar_t* key, const char* name)
{
    return ToUtf8(key) == name;
}

// What is known of an element: the fields of the object that it is, or the rows that it holds, or
// the criteria; none of them for a single value.
struct Known {
    std::span<const Field> fields = {};
    const Field* rows = nullptr; // whose rows stand in it
    bool isStyle = false;
    const Field* rowOf = nullptr; // the element is a row of that field

    bool HasAttribute(const char* name) const
    {
        if (isStyle) return IsCalled(L"Name", name) || IsCalled(L"ID", name);
        for (const Field& field : fields)
            if (!field.HasRows() && IsCalled(field.key, name)) return true;
        return false;
    }
    // What is known of a child element; nothing when it is unknown itself.
    std::optional<Known> Below(const char* name) const
    {
        if (isStyle) {
            const CriterionInfo* criterion = FindCriterion(ToWide(name));
            if (criterion && IsCalled(criterion->name, name)) return Known{criterion->fields};
        }
        if (rows && IsCalled(rows->rowElement, name)) return RowOf(*rows);
        for (const Field& field : fields) {
            const bool isInPlace = field.HasRows() && *field.element == 0;
            if (isInPlace && IsCalled(field.rowElement, name)) return RowOf(field);
            if (isInPlace || !IsCalled(field.HasRows() ? field.element : field.key, name)) continue;
            Known below;
            if (field.HasRows()) below.rows = &field;
            return below;
        }
        return std::nullopt;
    }

private:
    static Known RowOf(const Field& field) { return {field.RowFields(), nullptr, false, &field}; }
};

// The key as files have it once the value was read, so that it is found again.
std::string KeyText(const Field& key, pugi::xml_node row)
{
    Value value;
    const CString text = ToWide(row.attribute(ToUtf8(key.key).c_str()).value());
    if (!ParseValue(key, text, {}, value).empty()) return "0"; // missing
    return ToUtf8(ValueText(value));
}

bool Keep(pugi::xml_node node, const Known& known, pugi::xml_node kept);

// Copies what is unknown below a known child; nothing when there is none.
void KeepBelow(pugi::xml_node child, const Known& known, pugi::xml_node kept,
               std::multimap<std::string, pugi::xml_node>& places)
{
    pugi::xml_node place = kept.append_child(child.name());
    std::string order = child.name();
    if (known.rowOf) {
        for (const Field* key : KeysOf(*known.rowOf)) {
            const std::string text = KeyText(*key, child);
            place.append_attribute(ToUtf8(key->key).c_str()).set_value(text.c_str());
            order += ' ' + text;
        }
    }
    if (Keep(child, known, place))
        places.emplace(order, place);
    else
        kept.remove_child(place);
}

// Copies what is unknown of an element, attributes and children; false when nothing is. In an order
// that saving does not change: what is unknown stands behind what is known then, and rows stand in
// their own order.
bool Keep(pugi::xml_node node, const Known& known, pugi::xml_node kept)
{
    bool any = false;
    for (pugi::xml_attribute attribute : node.attributes())
        if (!known.HasAttribute(attribute.name())) any = kept.append_copy(attribute);
    std::multimap<std::string, pugi::xml_node> places;
    std::vector<pugi::xml_node> unknown;
    for (pugi::xml_node child : node.children()) {
        if (child.type() != pugi::node_element) continue;
        const std::optional<Known> below = known.Below(child.name());
        if (!below)
            unknown.push_back(child);
        else if (below->rowOf || child == node.child(child.name())) // the first one is read
            KeepBelow(child, *below, kept, places);
    }
    for (const auto& [order, place] : places)
        kept.append_move(place);
    for (const pugi::xml_node& child : unknown)
        kept.append_copy(child);
    return any || !places.empty() || !unknown.empty();
}

// The row of the same keys below `parent`.
pugi::xml_node FindRow(pugi::xml_node parent, pugi::xml_node kept, const Field& rows)
{
    const auto keys = KeysOf(rows);
    return parent.find_child([&](pugi::xml_node row) {
        return std::string_view(row.name()) == kept.name() &&
               std::all_of(keys.begin(), keys.end(), [&](const Field* key) {
                   const std::string name = ToUtf8(key->key);
                   return std::string_view(row.attribute(name.c_str()).value()) ==
                          kept.attribute(name.c_str()).value();
               });
    });
}

void Add(pugi::xml_node kept, const Known& known, pugi::xml_node node)
{
    for (pugi::xml_attribute attribute : kept.attributes()) {
        if (known.HasAttribute(attribute.name())) continue; // a row's key
        node.remove_attribute(attribute.name());
        node.append_copy(attribute);
    }
    for (pugi::xml_node child : kept.children())
        while (!known.Below(child.name()) && node.remove_child(child.name())) {
        }
    for (pugi::xml_node child : kept.children()) {
        const std::optional<Known> below = known.Below(child.name());
        if (!below) {
            node.append_copy(child);
            continue;
        }
        const pugi::xml_node place =
            below->rowOf ? FindRow(node, child, *below->rowOf) : node.child(child.name());
        if (place) Add(child, *below, place);
    }
}

constexpr wchar_t kRoot[] = L"Unknown";

} // namespace

std::string UnknownContent(const CXTPPropExchange& style)
{
    const CXTPPropExchangeXMLNode kept(false, kRoot);
    const bool any =
        Keep(pugi::xml_node(style.Node()), {.isStyle = true}, pugi::xml_node(kept.Node()));
    return any ? kept.SaveToBytes() : std::string();
}

void AddUnknownContent(const std::string& unknown, const CXTPPropExchange& style)
{
    if (unknown.empty()) return;
    CXTPPropExchangeXMLNode kept(true, kRoot);
    if (kept.LoadFromBytes(unknown, {}))
        Add(pugi::xml_node(kept.Node()), {.isStyle = true}, pugi::xml_node(style.Node()));
}

} // namespace designspec
