// What an object stores, and what it is after loading: the exchange without files.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "platform/xtp/PropExchangeXMLNode.h"

// The XML that the object stores into an element of its own called Root, without the declaration.
template <class T> std::string Stored(T object)
{
    CXTPPropExchangeXMLNode root(false, L"Root");
    object.DoPropExchange(&root);
    const std::string xml = root.SaveToBytes();
    return xml.substr(xml.find('\n') + 1);
}

// `object` after loading from such an element. No value may be unreadable.
template <class T> T Loaded(std::string_view xml, T object = T())
{
    CXTPPropExchangeXMLNode root(true, L"Root");
    EXPECT_TRUE(root.LoadFromBytes(xml, L"test.xml"));
    object.DoPropExchange(&root);
    EXPECT_TRUE(root.TakeProblems().empty());
    return object;
}

// A table of the shape that a file holds, indented as deep as a criterion's own.
inline std::string TableXml(const std::string& key,
                            std::initializer_list<std::pair<const char*, const char*>> items)
{
    std::string xml = "  <" + key + ">\n";
    for (const auto& [speed, value] : items)
        xml += std::string("    <Item speed=\"") + speed + "\" value=\"" + value + "\" />\n";
    return xml + "  </" + key + ">\n";
}
