// A library in a project folder of its own, with its trace lines caught.
#pragma once

#include <gtest/gtest.h>

#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

class LibraryTest : public testing::Test {
protected:
    LibraryTest() { VMRDPub::SetCurPrjPath(m_project.Path()); }
    ~LibraryTest() override
    {
        CDesignSpecifications::Destroy();
        VMRDPub::SetCurPrjPath(L"");
    }

    static CDesignSpecifications& Library() { return *CDesignSpecifications::GetInstance(); }

    // The library as another process would read it from the files.
    static CDesignSpecifications& Reload()
    {
        CDesignSpecifications::Destroy();
        Library().Update();
        return Library();
    }

    // A specification that tells itself by its longest straight line; with a given identity if
    // there is one.
    static CDesignSpecification Make(const CString& name, double mark = 20,
                                     const char* id = nullptr)
    {
        CDesignSpecification made;
        if (id) {
            CXTPPropExchangeXMLNode root(true, L"Style");
            root.LoadFromBytes(std::string("<Style ID='") + id + "'/>", L"test.xml");
            made.DoPropExchange(&root);
        }
        made.SetName(name.c_str());
        made.BeelineLen.MaxLen = mark;
        return made;
    }

    static CDesignSpecification& Add(const CDesignSpecification& specification)
    {
        return At(Library().Add(new CDesignSpecification(specification)));
    }

    static CDesignSpecification& AddSaved(const CDesignSpecification& specification)
    {
        CDesignSpecification& added = Add(specification);
        EXPECT_TRUE(Library().Save(&added));
        return added;
    }

    static CDesignSpecification& At(int index) { return *Library().Item(index); }

    static double MarkOf(const wchar_t* name)
    {
        const CDesignSpecification* found = Library().Item(name);
        return found ? found->BeelineLen.MaxLen : -1;
    }

    // The names of the library in their order, joined by blanks.
    static CString Names()
    {
        CString names;
        for (int i = 0; i < Library().Count(); ++i)
            names += (i ? L" " : L"") + Library().Item(i)->Name();
        return names;
    }

    static std::string FileOf(const CDesignSpecification& specification)
    {
        return "规范/" + ToUtf8(specification.Name() + VMRDPub::GUIDToStr(specification.ID())) +
               ".hds";
    }

    // A file's text around its styles.
    static std::string Envelope(const std::string& styles)
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<StyleLibrary>\n"
               "<Group Name=\"设计规范\">\n<Styles Name=\"设计规范\">\n" +
               styles + "\n</Styles>\n</Group>\n</StyleLibrary>\n";
    }

    static std::string Style(const std::string& name, const std::string& id, int mark = 20)
    {
        return "<Style Name=\"" + name + "\" ID=\"" + id + "\"><BeelineLen MaxLen=\"" +
               std::to_string(mark) + "\"/></Style>";
    }

    // One line that names the file and the line and holds the cause.
    bool Traced(const std::string& file, int line, const CString& cause) const
    {
        const CString path = m_project.Path(ToWide(file));
        for (const TraceLine& one : m_trace.Lines())
            if (one.file == path && one.line == line && one.text.find(cause) != CString::npos)
                return true;
        return false;
    }

    TemporaryFolder m_project;
    TraceCapture m_trace;
};

inline constexpr char kIdA[] = "AAAAAAAA-0000-4000-8000-00000000000A";
inline constexpr char kIdB[] = "BBBBBBBB-0000-4000-8000-00000000000B";
inline constexpr char kIdC[] = "CCCCCCCC-0000-4000-8000-00000000000C";
