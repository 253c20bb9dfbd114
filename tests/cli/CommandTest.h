// A project of its own for each test, in which the real command runs as the current folder.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

using Words = std::vector<std::string>;
using testing::HasSubstr;
using testing::Not;

class CommandTest : public testing::Test {
protected:
    // The language of the help, wherever the tests run.
    CommandTest() { SetVariable("LC_ALL", "C.UTF-8"); }

    using Json = nlohmann::ordered_json;

    ProcessResult Call(const Words& words) const { return CallIn(m_folder.Native(), words); }
    ProcessResult Call(const Words& words, const std::function<void()>& inChild) const
    {
        return RunProcess(WithProgram(words), m_folder.Native(), inChild);
    }

    static ProcessResult CallIn(const std::filesystem::path& folder, const Words& words)
    {
        return RunProcess(WithProgram(words), folder);
    }

    static Words WithProgram(const Words& words)
    {
        Words all = {DESIGNSPEC_PROGRAM};
        all.insert(all.end(), words.begin(), words.end());
        return all;
    }

    // Expects that the command did it and had nothing to complain about; what it printed.
    std::string Done(const Words& words) const
    {
        const ProcessResult result = Call(words);
        EXPECT_EQ(result.status, 0) << testing::PrintToString(words);
        EXPECT_EQ(result.err, "") << testing::PrintToString(words);
        return result.out;
    }

    // Expects that it failed so, printed nothing as a value and said `text`.
    void Fails(int status, const std::string& text, const Words& words) const
    {
        const ProcessResult result = Call(words);
        EXPECT_EQ(result.status, status) << testing::PrintToString(words);
        EXPECT_EQ(result.out, "") << testing::PrintToString(words);
        EXPECT_THAT(result.err, HasSubstr(text)) << testing::PrintToString(words);
        EXPECT_THAT(result.err, testing::StartsWith("designspec: "));
    }

    Json DoneJson(Words words) const
    {
        words.emplace_back("--json");
        const std::string out = Done(words);
        EXPECT_TRUE(Json::accept(out)) << out;
        return Json::parse(out, nullptr, false);
    }

    void New(const std::string& name) const { EXPECT_EQ(Done({"new", name}), ""); }

    // What `list --json` tells of the specification, whatever else it complains about.
    Json Entry(const std::string& name) const
    {
        const ProcessResult result = Call({"list", "--json"});
        for (const Json& entry : Json::parse(result.out))
            if (entry["name"] == name) return entry;
        ADD_FAILURE() << "not listed: " << name;
        return {};
    }
    std::string IdOf(const std::string& name) const { return Entry(name)["id"]; }
    // Below the project.
    std::string FileOf(const std::string& name) const
    {
        return "规范/" + Entry(name)["file"].get<std::string>();
    }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const Json& entry : Json::parse(Call({"list", "--json"}).out))
            names.push_back(entry["name"]);
        return names;
    }

    static std::vector<std::string> Lines(const std::string& text)
    {
        std::vector<std::string> lines;
        for (size_t from = 0, to = 0; (to = text.find('\n', from)) != std::string::npos;
             from = to + 1)
            lines.push_back(text.substr(from, to - from));
        return lines;
    }

    static std::string Replaced(std::string text, const std::string& what, const std::string& by)
    {
        const size_t at = text.find(what);
        EXPECT_NE(at, std::string::npos) << "not there: " << what;
        if (at != std::string::npos) text.replace(at, what.size(), by);
        return text;
    }

    TemporaryFolder m_folder;
};
