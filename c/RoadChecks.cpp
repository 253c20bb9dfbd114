// Roads held against specifications.
#include <algorithm>

#include "base/Text.h"
#include "c/Objects.h"
#include "roads/RoadJson.h"
#include "roads/Rules.h"

using namespace designspec;

namespace {

struct ToldFinding {
    std::string road, rule, element, stationFrom, stationTo, unit, criterion, source, message;
    const roadcheck::Finding* finding;
};

struct RoadCheckObject {
    static constexpr HandleKind kKind = HandleKind::RoadCheck;
    static constexpr wchar_t kNoHandle[] = L"不是道路检核的句柄,或已释放";

    std::vector<roadcheck::CheckedFile> files; // the one
    std::vector<ToldFinding> told;
};

// As far as the caller knows them.
designspec_check_options KnownOptions(const designspec_check_options* given)
{
    designspec_check_options options;
    designspec_check_options_init(&options);
    if (!given) return options;
    if (given->size < sizeof given->size) RefuseCall(L"选项没有写明大小(size)");
    std::copy_n(reinterpret_cast<const char*>(given), std::min(given->size, sizeof options),
                reinterpret_cast<char*>(&options));
    return options;
}

roadcheck::CheckOptions OptionsOf(const designspec_check_options* given,
                                  const CDesignSpecification& specification)
{
    const designspec_check_options known = KnownOptions(given);
    roadcheck::CheckOptions options;
    if (known.speed != 0) options.speeds.push_back({{}, known.speed});
    options.mode = ModeOf(known.mode);
    options.roadType = static_cast<CDSMaxResultantGrad::RoadType>(known.road_type);
    options.plateau = known.plateau != 0;
    options.snow = known.snow != 0;
    if (known.max_super >= 0) options.maxSuper = known.max_super;
    if (known.turns_about_edge) options.axis = roadcheck::RunoffAxis::Edge;
    if (known.vehicle) options.car = TextOf(known.vehicle);
    if (const CString problem = OptionsProblem(options, specification); !problem.empty())
        RefuseCall(problem);
    return options;
}

void TellFindings(RoadCheckObject& check)
{
    for (const roadcheck::CheckedFile& file : check.files)
        for (const roadcheck::CheckedRoad& one : file.roads)
            for (const roadcheck::Finding& finding : one.report.findings)
                check.told.push_back({ToUtf8(one.road.name), ToUtf8(finding.rule->id),
                                      ToUtf8(finding.element.kind),
                                      ToUtf8(one.road.stations.Text(finding.from)),
                                      ToUtf8(one.road.stations.Text(finding.to)),
                                      ToUtf8(finding.unit), ToUtf8(finding.criterion),
                                      ToUtf8(finding.source), ToUtf8(finding.message), &finding});
}

} // namespace

void designspec_check_options_init(designspec_check_options* options)
{
    if (!options) return;
    *options = {};
    options->size = sizeof *options;
    options->mode = DESIGNSPEC_UPPER;
    options->max_super = -1;
}

designspec_status designspec_check_file(const designspec_specification* specification,
                                        const char* file, const designspec_check_options* options,
                                        designspec_road_check** check)
{
    return Call([&] {
        NeedAll(check);
        const auto limits = ObjectOf<SpecificationObject>(specification);
        auto object = std::make_shared<RoadCheckObject>();
        object->files.push_back(roadcheck::CheckRoadFile(TextOf(file), {}, limits->Get(),
                                                         OptionsOf(options, limits->Get())));
        const roadcheck::CheckedFile& checked = object->files.front();
        KeepProblems(checked.problems);
        if (checked.roads.empty()) return DESIGNSPEC_FILE_FAILED;
        const Problems unchecked = RoadsWithoutSpeed(checked);
        if (unchecked.size() == checked.roads.size())
            RefuseCall(L"文件没有给出设计车速, 请在选项中给出(speed)");
        KeepProblems(unchecked);
        const bool isWhole = !HasError(checked.problems) && unchecked.empty();
        TellFindings(*object);
        HandOut(check, std::move(object));
        return isWhole ? DESIGNSPEC_OK : DESIGNSPEC_FILE_FAILED;
    });
}

designspec_status designspec_check_free(designspec_road_check* check)
{
    return EndHandle<RoadCheckObject>(check);
}

designspec_status designspec_check_count(const designspec_road_check* check, size_t* count)
{
    return Call([&] {
        NeedAll(count);
        *count = ObjectOf<RoadCheckObject>(check)->told.size();
    });
}

designspec_status designspec_check_at(const designspec_road_check* check, size_t index,
                                      designspec_finding* finding)
{
    return Call([&] {
        NeedAll(finding);
        const auto object = ObjectOf<RoadCheckObject>(check);
        if (index >= object->told.size()) return DESIGNSPEC_NO_ANSWER;
        const ToldFinding& one = object->told[index];
        const roadcheck::Finding& found = *one.finding;
        *finding = {one.road.c_str(),
                    one.rule.c_str(),
                    roadcheck::SeverityName(found.rule->severity),
                    one.element.c_str(),
                    found.element.index,
                    found.from,
                    found.to,
                    one.stationFrom.c_str(),
                    one.stationTo.c_str(),
                    found.speed,
                    found.value,
                    found.limit,
                    one.unit.c_str(),
                    one.criterion.c_str(),
                    one.source.c_str(),
                    one.message.c_str()};
        return DESIGNSPEC_OK;
    });
}

designspec_status designspec_check_json(const designspec_road_check* check, char** json)
{
    return Call([&] {
        NeedAll(json);
        HandOutText(json, roadcheck::JsonReport(ObjectOf<RoadCheckObject>(check)->files));
    });
}
