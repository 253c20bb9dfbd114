// A small library of styles for the tests: signs, each a name and an identity, in files of the
// common envelope StyleLibrary / Group / Styles / Style.
#pragma once

#include <memory>
#include <vector>

#include "platform/vmrd/VMRDEnv/Styles.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

class CSign : public CStyle {
public:
    CSign(const CString& name, const GUID& id) : m_name(name), m_id(id) {}
    CString Name() const override { return m_name; }
    GUID ID() const override { return m_id; }

private:
    CString m_name;
    GUID m_id;
};

class CSigns : public CStyles {
public:
    CString Name() const override { return L"标志"; }
    int Count() const override { return static_cast<int>(m_signs.size()); }
    CStyle* Item(const GUID& id) const override
    {
        for (const auto& sign : m_signs)
            if (sign->ID() == id) return sign.get();
        return nullptr;
    }
    CStyle* Item(int index) const override
    {
        return index >= 0 && index < Count() ? m_signs[static_cast<size_t>(index)].get() : nullptr;
    }

    // Writes all signs, whatever the names, behind those that the file holds.
    bool Export(const wchar_t* path, const CStringArray&, const wchar_t*) override
    {
        CXTPPropExchangeXMLNode root;
        CXTPPropExchange styles;
        if (!CreateStylesNode(path, Name().c_str(), root, styles)) return false;
        for (const auto& sign : m_signs) {
            CXTPPropExchange style = styles.AppendSection(L"Style");
            style.EnableCompactMode(true);
            CString name = sign->Name();
            CString id = VMRDPub::GUIDToStr(sign->ID());
            PX_String(&style, L"Name", name);
            PX_String(&style, L"ID", id);
        }
        return root.SaveToFile(path);
    }
    bool Import(const wchar_t*, const CStringArray&, const wchar_t*, bool) override
    {
        return false;
    }
    bool SaveAsTemplate(const wchar_t*) override { return false; }
    bool StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const override
    {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        if (!root.LoadFromFile(path)) return false;
        const CXTPPropExchange group = root.GetSection(GroupPath(Name().c_str()).c_str());
        auto all = group.GetEnumerator(L"Styles[@Name=\"标志\"]/Style");
        while (all.HasNext()) {
            const CXTPPropExchange style = all.GetNext();
            names.push_back(style.Attribute(L"Name"));
            ids.push_back(VMRDPub::StrToGUID(style.Attribute(L"ID")));
        }
        return true;
    }
    void Update() override {}

    void Add(const CString& name, const GUID& id)
    {
        m_signs.push_back(std::make_unique<CSign>(name, id));
    }
    void Clear() { m_signs.clear(); }

    using CStyles::CreateStylesNode;
    using CStyles::GroupPath;
    using CStyles::HasID;

private:
    std::vector<std::unique_ptr<CSign>> m_signs;
};
