// A small library of styles for the tests: signs, each a name and an identity, without files.
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

    bool Export(const wchar_t*, const CStringArray&, const wchar_t*) override { return false; }
    bool Import(const wchar_t*, const CStringArray&, const wchar_t*, bool) override
    {
        return false;
    }
    bool SaveAsTemplate(const wchar_t*) override { return false; }
    bool StyleNames(const wchar_t*, CStringArray&, CArray<GUID>&) const override { return false; }
    designspec::StyleImport ImportAndSave(const CString&, const CStringArray&, bool) override
    {
        return {};
    }
    designspec::StyleFolder& Files() override { return m_files; }
    void Update() override {}

    void Add(const CString& name, const GUID& id)
    {
        m_signs.push_back(std::make_unique<CSign>(name, id));
    }
    void Clear() { m_signs.clear(); }

private:
    std::vector<std::unique_ptr<CSign>> m_signs;
    designspec::StyleFolder m_files{L"", L"标志"};
};
