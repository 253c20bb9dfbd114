// What stands in a project's library folder and cannot be read: the command says which file and
// why, ends with 3, and works with the rest.
#pragma once

#include <algorithm>

#include "tests/cli/CommandTest.h"

class BadInput : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        m_file = FileOf("城市");
        m_content = m_folder.Read(m_file);
        m_id = IdOf("城市");
    }

    // Puts the bytes into the library and expects the file to be refused for that cause, at that
    // line (0: the file as a whole), and the good file to be listed and queried all the same.
    void Refused(const std::string& bytes, int line, const std::string& cause) const
    {
        m_folder.Write("规范/bad.hds", bytes);
        RefusedAsItIs(line, cause);
    }
    void RefusedAsItIs(int line, const std::string& cause) const
    {
        RefusedAsItIs(line, cause, [this](const Words& words) { return Call(words); });
    }
    template <class Caller>
    static void RefusedAsItIs(int line, const std::string& cause, const Caller& call)
    {
        const std::string place = line > 0 ? ":" + std::to_string(line) : "";
        const ProcessResult list = call({"list", "--json"});
        EXPECT_EQ(list.status, 3);
        EXPECT_THAT(list.err, HasSubstr("规范/bad.hds" + place + ": "));
        EXPECT_THAT(list.err, HasSubstr(cause));
        const Json listed = Json::parse(list.out, nullptr, false);
        ASSERT_EQ(listed.size(), 1U) << list.out;
        EXPECT_EQ(listed[0]["name"], "城市");
        const ProcessResult query = call({"query", "CircularCurveRad.MaxRad"});
        EXPECT_EQ(query.status, 3);
        EXPECT_EQ(query.out, "10000\n");
        EXPECT_EQ(query.err, list.err);
    }

    // The good file as another specification, with one thing changed.
    std::string Other(const std::string& what, const std::string& by) const
    {
        const std::string other =
            Replaced(Replaced(m_content, m_id, "00000000-0000-0000-0000-000000000001"),
                     "Name=\"城市\"", "Name=\"乡村\"");
        return Replaced(other, what, by);
    }
    int LineOf(const std::string& bytes, const std::string& what) const
    {
        const size_t at = bytes.find(what);
        EXPECT_NE(at, std::string::npos) << what;
        if (at == std::string::npos) return 0;
        return 1 + static_cast<int>(std::count(
                       bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }
    // A wrong value in the middle of the file.
    void RefusedValue(const std::string& what, const std::string& by,
                      const std::string& cause) const
    {
        const std::string bytes = Other(what, by);
        Refused(bytes, LineOf(bytes, by), cause);
    }

    std::string m_file;
    std::string m_content;
    std::string m_id;
};
