// Pages that write down what the main dialog asks of them.
#pragma once

#include "base/Text.h"
#include "pages/PageTable.h"
#include "platform/mfc/String.h"

using namespace designspec;

struct RecordingState {
    std::vector<std::string> log; // "2.Load(甲)"
    std::string refusal;          // what page `refusing` answers to Validate
    int refusing = 0;
    int alive = 0;
    std::vector<QWidget*> parents; // of each page when it was made
    std::vector<CDSPage*> before;
    int locks = 0; // of the document, when the last page was made
};
inline RecordingState g_recorded;

class CRecordingCallback : public CDSCallback {
public:
    CRecordingCallback(CDSPage* page, int number) : CDSCallback(page), m_number(number) {}

    void Load(const wchar_t* name) override { Record("Load", name); }
    void Rename(const wchar_t* name) override { Record("Rename", name); }
    bool Validate(CString& message) override
    {
        Record("Validate");
        if (g_recorded.refusing == m_number) message = ToWide(g_recorded.refusal);
        return g_recorded.refusing != m_number;
    }
    bool Save() override
    {
        Record("Save");
        return false;
    }
    bool RenameAndSave(const wchar_t* name) override
    {
        // The new specification is there already.
        m_strName = name;
        Record(Specification() ? "RenameAndSave" : "RenameAndSave without a specification", name);
        return true;
    }
    void OnShow() override { Record("OnShow"); }

private:
    void Record(const char* operation, const wchar_t* name = nullptr)
    {
        std::string line = std::to_string(m_number) + "." + operation;
        if (name) line += "(" + ToUtf8(name) + ")";
        g_recorded.log.push_back(line);
    }
    int m_number;
};

// The page of that number; its form has a field 108.
template <int Number> class CRecordingPage : public CDSPage {
public:
    CRecordingPage() : CDSPage(103) { ++g_recorded.alive; }
    ~CRecordingPage() override { --g_recorded.alive; }
    CDSCallback& Callback() override { return m_callback; }

private:
    CRecordingCallback m_callback{this, Number};
};

template <int Number> std::unique_ptr<CDSPage> MakeRecordingPage(CDSPage* before)
{
    g_recorded.before.push_back(before);
    return std::make_unique<CRecordingPage<Number>>();
}

// Two groups, one of them named in two cases, and a page without a group.
inline constexpr PageEntry kRecordingPages[] = {
    {L"Plan", L"一", MakeRecordingPage<1>},
    {L"纵断", L"二", MakeRecordingPage<2>},
    {L"PLAN", L"三", MakeRecordingPage<3>},
    {nullptr, L"四", MakeRecordingPage<4>},
};
