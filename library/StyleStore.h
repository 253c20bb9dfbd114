// A document of styles that specifications are stored into.
#pragma once

#include <unordered_map>

#include "model/DesignSpecification.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

namespace designspec {

class StyleStore {
public:
    // Begins with the file at `path`, or anew when there is none or `path` is empty. IsOpen tells
    // whether it could be read.
    explicit StyleStore(const CString& path = {});

    bool IsOpen() const { return m_open; }
    CXTPPropExchangeXMLNode& Root() { return m_root; }

    // In place of the one of its identity, or behind the others.
    void Store(const CDesignSpecification& specification);
    // Takes the one of that identity out, if it is there.
    void Remove(const GUID& id);

private:
    CXTPPropExchangeXMLNode m_root;
    CXTPPropExchange m_styles;
    bool m_open;
    std::unordered_map<CString, CXTPPropExchange> m_sections; // by identity
};

} // namespace designspec
