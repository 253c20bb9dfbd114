// All that the command can do, at once on one project, each call a process of its own, for ten
// seconds, or as many as DESIGNSPEC_MIXED_SECONDS says. What was told to be done must be there, or
// written over by what was told later, or among the deleted ones.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <mutex>
#include <random>
#include <regex>
#include <set>
#include <thread>

#include "library/SpecificationFolder.h"
#include "model/SpeedTable.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/cli/CommandTest.h"
#include "tests/cli/WriteHistory.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr int kWorkers = 8;
constexpr int kLowest = 10; // km/h, of the values' speeds
constexpr int kMissing = -1;
const char* const kTable = "CircularCurveRad.SuperelevationMinRad";
const char* const kNames[] = {"名一", "名二", "名三", "名四", "名五", "名六", "名七"};

// One value for each worker, which nobody else sets: that of a speed of its own.
using Values = std::array<int, kWorkers>;

Values ValuesOf(CDesignSpecification& specification)
{
    Values values;
    for (int worker = 0; worker < kWorkers; ++worker) {
        int& value = values[static_cast<size_t>(worker)];
        if (!QueryValue::QueryIntValBySpeed(&specification.CircularCurveRad.SuperelevationMinRad,
                                            kLowest + worker, QueryValue::Exact, value))
            value = kMissing;
    }
    return values;
}

// What the workers know of a specification.
struct Known {
    bool isReplaced = false; // by imports
    bool isKept = false;     // never renamed, nor removed
    std::array<WriteHistory<int>, kWorkers> values;
    std::array<int, kWorkers> last{}; // that its worker has set; 0: none yet
    WriteHistory<std::string> name;
    WriteHistory<bool> isThere;
};

struct Seen {
    Span span;
    std::string id;
    int worker;
    int value;
};

class MixedCommands : public CommandTest {
protected:
    static int Seconds()
    {
        const char* const told = std::getenv("DESIGNSPEC_MIXED_SECONDS");
        return told ? std::atoi(told) : 10;
    }

    struct Worker {
        int number;
        std::minstd_rand random;
        int count = 0;

        int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
        std::string Name() { return kNames[Below(static_cast<int>(std::size(kNames)))]; }
        std::string Speed() const { return std::to_string(kLowest + number); }
    };

    void Work(Worker& worker)
    {
        using Operation = void (MixedCommands::*)(Worker&);
        static constexpr std::pair<int, Operation> kOperations[] = {
            {30, &MixedCommands::Set},     {12, &MixedCommands::Query},
            {10, &MixedCommands::Rename},  {8, &MixedCommands::Remove},
            {12, &MixedCommands::Restore}, {8, &MixedCommands::New},
            {5, &MixedCommands::Default},  {6, &MixedCommands::Import},
            {3, &MixedCommands::Export},   {3, &MixedCommands::Show},
            {3, &MixedCommands::List}};
        int choice = worker.Below(100);
        for (const auto& [share, operation] : kOperations) {
            if (choice < share) return (this->*operation)(worker);
            choice -= share;
        }
    }

    // Calls the command. Only what others did can have made it impossible, and never a file.
    bool Run(Span& span, ProcessResult& result, const Words& words, bool mustDo = false)
    {
        span = {};
        result = Call(words);
        span.end = Span::Clock::now();
        const std::scoped_lock lock(m_mutex);
        ++m_calls[words[0]][result.status];
        const bool refused = (result.status == 2 && !mustDo && IsByOthers(result.err)) ||
                             (result.status == 1 && words[0] == "query");
        const bool isDone = result.status == 0;
        EXPECT_TRUE(isDone || refused) << testing::PrintToString(words) << "\n"
                                       << result.status << " " << result.err;
        if (!isDone || words[0] == "restore" || words[0] == "import") return isDone;
        for (const char* fault : {"重名,改称", "标识相同", "无法", "已被他人修改"})
            EXPECT_THAT(result.err, Not(HasSubstr(fault))) << testing::PrintToString(words);
        return isDone;
    }
    static bool IsByOthers(const std::string& text)
    {
        for (const char* reason :
             {"重名", "没有设计规范“", "没有已删除的设计规范", "已删除的“", "库中已有同一标识"})
            if (text.find(reason) != std::string::npos) return true;
        return false;
    }

    std::string AnyId(Worker& worker, bool withKept = true)
    {
        const std::scoped_lock lock(m_mutex);
        for (;;) {
            auto chosen = m_known.begin();
            std::advance(chosen, worker.Below(static_cast<int>(m_known.size())));
            if (withKept || !chosen->second.isKept) return chosen->first;
        }
    }
    bool IsKept(const std::string& id)
    {
        const std::scoped_lock lock(m_mutex);
        return m_known.at(id).isKept;
    }
    Known& Add(const std::string& id, const std::string& name, const Span& span)
    {
        Known& known = m_known[id];
        known.name.Add(span, name);
        known.isThere.Add(span, true);
        return known;
    }

    void Set(Worker& worker)
    {
        const std::string id = AnyId(worker);
        const int value = 1 + ++worker.count * kWorkers + worker.number;
        Span span;
        ProcessResult result;
        if (!Run(span, result,
                 {"set", kTable, std::to_string(value), "--speed", worker.Speed(), "--force",
                  "--spec", id, "--wait", "300"},
                 IsKept(id)))
            return;
        const std::scoped_lock lock(m_mutex);
        const auto number = static_cast<size_t>(worker.number);
        m_known[id].values[number].Add(span, value);
        m_known[id].last[number] = value;
    }

    // What was read is held against the model at the end, when all is known.
    void Saw(const Span& span, const std::string& id, int worker, int value)
    {
        const std::scoped_lock lock(m_mutex);
        m_seen.push_back({span, id, worker, value});
    }
    bool HasSet(const Worker& worker, const std::string& id)
    {
        const std::scoped_lock lock(m_mutex);
        return m_known.at(id).last[static_cast<size_t>(worker.number)] != 0;
    }

    void Query(Worker& worker)
    {
        const std::string id = AnyId(worker);
        if (!HasSet(worker, id)) return;
        Span span;
        ProcessResult result;
        if (Run(span, result,
                {"query", kTable, "--speed", worker.Speed(), "--mode", "exact", "--spec", id},
                IsKept(id)))
            Saw(span, id, worker.number, std::stoi(result.out));
        else if (result.status == 1)
            Saw(span, id, worker.number, kMissing);
    }

    void Show(Worker& worker)
    {
        const std::string id = AnyId(worker);
        if (!HasSet(worker, id)) return;
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"show", "CircularCurveRad", "--spec", id, "--json"}, IsKept(id)))
            return;
        int value = kMissing;
        const Json shown = Json::parse(result.out);
        for (const Json& row : shown["criteria"]["CircularCurveRad"]["SuperelevationMinRad"])
            if (row["speed"] == kLowest + worker.number) value = row["value"];
        Saw(span, id, worker.number, value);
    }

    void List(Worker&)
    {
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"list", "--json"}, true)) return;
        std::set<std::string> ids;
        std::set<std::string> names;
        for (const Json& entry : Json::parse(result.out)) {
            EXPECT_TRUE(ids.insert(entry["id"]).second) << result.out;
            EXPECT_TRUE(names.insert(entry["name"]).second) << result.out;
        }
        EXPECT_TRUE(ids.contains(m_kept));
    }

    void Rename(Worker& worker)
    {
        const std::string id = AnyId(worker, false);
        const std::string name = worker.Name();
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"rename", id, name, "--wait", "300"})) return;
        const std::scoped_lock lock(m_mutex);
        m_known[id].name.Add(span, name);
    }

    void Remove(Worker& worker)
    {
        const std::string word = worker.Below(2) ? worker.Name() : AnyId(worker, false);
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"remove", word, "--wait", "300"})) return;
        // Whose name it was is told by the file.
        static const std::regex kId("([-0-9A-F]{36})[.]hds: 已移至");
        std::smatch id;
        ASSERT_TRUE(std::regex_search(result.err, id, kId)) << result.err;
        const std::scoped_lock lock(m_mutex);
        m_known[id[1]].isThere.Add(span, false);
    }

    void Restore(Worker& worker)
    {
        const std::string id = AnyId(worker, false);
        const std::string file = DeletedFile(id);
        // Of one that imports come over, deleted files may hold what it was before.
        if (file.empty() || std::ranges::find(m_replaced, id) != m_replaced.end()) return;
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"restore", file, "--json", "--wait", "300"})) return;
        const Json restored = Json::parse(result.out);
        EXPECT_EQ(restored["id"], id);
        const std::scoped_lock lock(m_mutex);
        Add(id, restored["name"], span);
    }

    // One that others may bring back before; empty when there is none. By its identity, one that is
    // there would become what it was before.
    std::string DeletedFile(const std::string& id) const
    {
        std::error_code gone;
        for (const auto& entry : fs::directory_iterator(m_folder.Native("规范/已删除"), gone))
            if (const std::string name = Utf8(entry.path().filename());
                name.find(id) != std::string::npos)
                return name;
        return {};
    }

    void New(Worker& worker)
    {
        Words words = {"new", worker.Name(), "--json", "--wait", "300"};
        if (worker.Below(2)) words.insert(words.end(), {"--from", m_kept, "--force"});
        Span span;
        ProcessResult result;
        if (!Run(span, result, words)) return;
        const Json made = Json::parse(result.out);
        const std::scoped_lock lock(m_mutex);
        Add(made["id"], made["name"], span);
    }

    void Default(Worker& worker)
    {
        const std::string id = AnyId(worker);
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"default", id, "--wait", "300"}, IsKept(id))) return;
        const std::scoped_lock lock(m_mutex);
        m_default.Add(span, id);
    }

    // What a file holds of the one specification in it.
    static Values ValuesIn(const fs::path& file, const std::string& id)
    {
        SpecificationFolder taken(L"");
        EXPECT_TRUE(taken.TakeIn(ToWide(Utf8(file)), {}, true).done) << file;
        CDesignSpecification* const found = taken.Find(VMRDPub::StrToGUID(ToWide(id)));
        EXPECT_NE(found, nullptr) << file;
        return found ? ValuesOf(*found) : Values{};
    }

    // All into a file; of the kept one, what the workers have set is seen there.
    void Export(Worker& worker)
    {
        const fs::path file = m_files.Native("all" + std::to_string(worker.number) + ".hds");
        fs::remove(file);
        Span span;
        ProcessResult result;
        if (!Run(span, result, {"export", Utf8(file)}, true)) return;
        const Values values = ValuesIn(file, m_kept);
        for (int k = 0; k < kWorkers; ++k)
            Saw(span, m_kept, k, values[static_cast<size_t>(k)]);
    }

    // One out and, when others have gone on, in again: everybody's values are what they were.
    void Import(Worker& worker)
    {
        const std::string& id = m_replaced[static_cast<size_t>(worker.Below(2))];
        const fs::path file = m_files.Native("one" + std::to_string(worker.number) + ".hds");
        Span span;
        ProcessResult result;
        if (!fs::exists(file) || worker.Below(2)) {
            fs::remove(file);
            const std::string name = NameOf(id);
            if (name.empty() || !Run(span, result, {"export", Utf8(file), name})) return;
            if (result.err.find("未导出") != std::string::npos) fs::remove(file);
            return;
        }
        if (!Run(span, result,
                 {"import", Utf8(file), "--overwrite", "--force", "--json", "--wait", "300"}))
            return;
        for (const Json& taken : Json::parse(result.out)) {
            const Values values = ValuesIn(file, taken["id"]);
            const std::scoped_lock lock(m_mutex);
            Known& known = Add(taken["id"], taken["name"], span);
            known.isReplaced = true;
            for (size_t k = 0; k < values.size(); ++k)
                known.values[k].Add(span, values[k]);
        }
    }
    // Empty when it is not there.
    std::string NameOf(const std::string& id)
    {
        for (const Json& entry : Json::parse(Call({"list", "--json"}).out))
            if (entry["id"] == id) return entry["name"];
        return {};
    }

    // The end

    // What stands in the folder's files, each read for itself.
    struct Stored {
        std::string name;
        Values values;
    };
    using AllStored = std::multimap<std::string, Stored>; // by identity
    AllStored ReadFiles(std::string_view folder)
    {
        AllStored stored;
        for (const auto& entry : fs::directory_iterator(m_folder.Native(folder))) {
            if (entry.path().extension() != ".hds") continue;
            SpecificationFolder taken(L"");
            EXPECT_TRUE(taken.TakeIn(ToWide(Utf8(entry.path())), {}, true).done) << entry;
            EXPECT_EQ(taken.Count(), 1) << entry;
            CDesignSpecification& one = *taken.Item(0);
            stored.emplace(ToUtf8(VMRDPub::GUIDToStr(one.ID())),
                           Stored{ToUtf8(one.Name()), ValuesOf(one)});
        }
        return stored;
    }

    void ExpectNothingLeft()
    {
        for (const auto& entry : fs::recursive_directory_iterator(m_folder.Native())) {
            const std::string name = Utf8(entry.path().filename());
            EXPECT_TRUE(entry.is_directory() || name == "setting.ini" || name.ends_with(".hds"))
                << entry;
        }
        for (const auto& entry : fs::directory_iterator(m_files.Native()))
            EXPECT_EQ(entry.path().extension(), ".hds") << entry;
    }

    void ExpectOneOfEach(const AllStored& there)
    {
        std::set<std::string> names;
        for (auto one = there.begin(); one != there.end(); ++one) {
            EXPECT_EQ(there.count(one->first), 1U) << one->second.name << one->first;
            EXPECT_TRUE(names.insert(one->second.name).second) << one->second.name;
            EXPECT_TRUE(m_known.contains(one->first)) << one->second.name << one->first;
            EXPECT_TRUE(m_folder.Has("规范/" + one->second.name + one->first + ".hds"));
        }
    }

    void ExpectPlace(const std::string& id, const Known& known, const AllStored& there,
                     const AllStored& deleted, const Span& end)
    {
        const bool isThere = there.contains(id);
        EXPECT_TRUE(known.isThere.MayBe(isThere, end)) << id << (isThere ? " is" : " is not there");
        EXPECT_TRUE(isThere || deleted.contains(id)) << id << " is lost";
        if (!isThere) return;
        const std::string& name = there.find(id)->second.name;
        EXPECT_TRUE(known.name.MayBe(name, end)) << id << " " << name;
    }

    // The value is there, or an import has come over it and it is among the deleted ones.
    void ExpectValues(const std::string& id, const Known& known, const AllStored& there,
                      const AllStored& deleted, const Span& end)
    {
        const auto [first, last] = deleted.equal_range(id);
        const auto now = there.contains(id) ? there.find(id) : first;
        if (now == deleted.end()) return;
        for (size_t k = 0; k < kWorkers; ++k) {
            const int own = known.last[k];
            if (own == 0) continue;
            const auto holds = [&](const auto& one) { return one.second.values[k] == own; };
            EXPECT_TRUE(holds(*now) || (known.isReplaced && std::any_of(first, last, holds)))
                << id << " has lost the value " << own;
            if (there.contains(id))
                EXPECT_TRUE(known.values[k].MayBe(now->second.values[k], end))
                    << id << " " << now->second.values[k] << " for " << own;
            else
                EXPECT_TRUE(known.isReplaced || std::distance(first, last) == 1) << id;
        }
    }

    void ExpectDefault(const AllStored& there, const Span& end)
    {
        std::string now;
        for (const Json& entry : Json::parse(Call({"list", "--json"}).out))
            if (entry["default"]) now = entry["id"];
        bool isOfOneGone = false;
        for (const auto& [id, known] : m_known)
            isOfOneGone = isOfOneGone || (!there.contains(id) && m_default.MayBe(id, end));
        EXPECT_TRUE(now.empty() ? isOfOneGone : m_default.MayBe(now, end)) << now;
    }

    // Whatever is removed comes back, with all that it held.
    void ExpectComesBack(const AllStored& there, const AllStored& deleted)
    {
        AllStored expected = there;
        std::set<std::string> back;
        for (const Json& entry : DoneListOfDeleted()) {
            const std::string id = entry["id"];
            if (!back.insert(id).second || there.contains(id)) continue;
            const ProcessResult result = Call({"restore", entry["file"], "--json"});
            EXPECT_EQ(result.status, 0) << result.err;
            if (deleted.count(id) == 1) expected.insert(*deleted.find(id));
        }
        const AllStored now = ReadFiles("规范");
        ExpectOneOfEach(now);
        for (const auto& [id, stored] : expected) {
            ASSERT_TRUE(now.contains(id)) << id;
            EXPECT_EQ(now.find(id)->second.values, stored.values) << id;
        }
    }
    Json DoneListOfDeleted() const
    {
        return Json::parse(Call({"list", "--deleted", "--json"}).out);
    }

    void Tell() const
    {
        for (const auto& [word, statuses] : m_calls) {
            std::cout << word;
            for (const auto& [status, count] : statuses)
                std::cout << "  " << status << ": " << count;
            std::cout << '\n';
        }
        std::cout << m_known.size() << " specifications, " << m_seen.size() << " values read\n";
    }

    std::string Made(const std::string& name)
    {
        Span span;
        const Json made = DoneJson({"new", name});
        span.end = Span::Clock::now();
        for (auto& values : Add(made["id"], name, span).values)
            values.Add(span, kMissing);
        return made["id"];
    }

    TemporaryFolder m_files;              // for export and import
    std::mutex m_mutex;                   // of what follows
    std::map<std::string, Known> m_known; // by identity
    WriteHistory<std::string> m_default;
    std::vector<Seen> m_seen;
    std::map<std::string, std::map<int, int>> m_calls; // how many, by command and status
    std::string m_kept;
    std::array<std::string, 2> m_replaced;
};

} // namespace

TEST_F(MixedCommands, LoseNothingThatWasToldToBeDone)
{
    m_kept = Made("常在");
    m_known[m_kept].isKept = true;
    m_replaced = {Made("换一"), Made("换二")};
    for (const char* name : {"共一", "共二", "共三"})
        Made(name);

    const auto until = Span::Clock::now() + std::chrono::seconds(Seconds());
    std::vector<std::thread> threads;
    for (int k = 0; k < kWorkers; ++k)
        threads.emplace_back([&, k] {
            Worker worker{k, std::minstd_rand(static_cast<unsigned>(k + 1))};
            while (Span::Clock::now() < until && !HasFailure())
                Work(worker);
        });
    for (std::thread& thread : threads)
        thread.join();
    Tell();

    Span end;
    end.end = Span::Clock::now();
    ExpectNothingLeft();
    const AllStored there = ReadFiles("规范");
    const AllStored deleted = ReadFiles("规范/已删除");
    ExpectOneOfEach(there);
    for (const auto& [id, known] : m_known) {
        ExpectPlace(id, known, there, deleted, end);
        ExpectValues(id, known, there, deleted, end);
    }
    for (const Seen& seen : m_seen)
        EXPECT_TRUE(m_known.at(seen.id).values[static_cast<size_t>(seen.worker)].MayBe(seen.value,
                                                                                       seen.span))
            << seen.id << " showed " << seen.value;
    ExpectDefault(there, end);
    ExpectComesBack(there, deleted);
}
