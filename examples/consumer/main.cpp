// Asks the default specification of a project each of the library's queries once.
//
//   consumer PROJECT        PROJECT is the folder that holds 规范
#include <array>
#include <filesystem>
#include <iostream>
#include <string>

#include <designspec/library/DesignSpecifications.h>
#include <designspec/model/SpeedArrays.h>
#include <designspec/platform/vmrd/VMRDPub/VMRDPub.h>

namespace {

constexpr int kSpeed = 55;    // km/h, between two speeds of the tables
constexpr int kRadius = 180;  // m
constexpr double kGrad = 6.5; // %

void Print(const std::string& what, bool answered, double value)
{
    std::cout << what << ": ";
    if (answered)
        std::cout << value << '\n';
    else
        std::cout << "no answer\n";
}

void AskSpeedTables(const CDesignSpecification& specification)
{
    int radius = 0;
    bool answered =
        QueryValue::QueryIntValBySpeed(&specification.CircularCurveRad.noSuperelevationMinRad,
                                       kSpeed, QueryValue::Interpolate, radius);
    Print("CircularCurveRad.noSuperelevationMinRad", answered, radius);

    double grad = 0;
    answered = QueryValue::QueryDoubleValBySpeed(&specification.LonGrad.MaxGradRecommendedValues,
                                                 kSpeed, QueryValue::Upper, grad);
    Print("LonGrad.MaxGradRecommendedValues", answered, grad);

    const SpeedToDoubleValues& cityRoad =
        specification.MaxResultantGrad.Item(CDSMaxResultantGrad::CityRoad);
    answered = QueryValue::QueryDoubleValBySpeed(&cityRoad, 60, QueryValue::Exact, grad);
    Print("MaxResultantGrad.CityRoad", answered, grad);
}

void AskCompoundTables(const CDesignSpecification& specification)
{
    int length = 0;
    const bool answered =
        specification.LonGradMaxLen.QueryVal(kGrad, 50, QueryValue::Nearest, length);
    Print("LonGradMaxLen", answered, length);

    int superElevation = 0;
    int code = specification.SuperElevation.QuerySuperElevation(4, 60, QueryValue::Nearest, 10,
                                                                kRadius, superElevation);
    Print("SuperElevation", code == 0, superElevation);

    double widening = 0;
    code = specification.CurveWidening.QueryWidening(L"铰接车", kRadius, widening);
    Print("CurveWidening", code == 0, widening);
}

void AskManySpeeds(const CDesignSpecification& specification)
{
    constexpr std::array<std::int32_t, 4> kSpeeds = {20, 55, 80, 120}; // km/h
    std::array<double, kSpeeds.size()> radii{};
    std::array<std::uint8_t, kSpeeds.size()> found{};
    designspec::QueryMany(specification.CircularCurveRad.SuperelevationMinRad, kSpeeds,
                          QueryValue::Upper, 0, radii.data(), found.data());
    for (std::size_t i = 0; i < kSpeeds.size(); ++i)
        Print(std::to_string(kSpeeds[i]) + " km/h", found[i] != 0, radii[i]);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: consumer PROJECT\n";
        return 2;
    }
    const std::u32string folder = std::filesystem::path(argv[1]).u32string();
    VMRDPub::SetCurPrjPath({folder.begin(), folder.end()});
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    library.Update();
    const auto* specification = dynamic_cast<const CDesignSpecification*>(library.DefaultItem());
    if (!specification) {
        std::cerr << "no default specification\n";
        return 1;
    }
    const CString name = specification->Name();
    std::cout << std::filesystem::path(std::u32string(name.begin(), name.end())).string() << '\n';
    AskSpeedTables(*specification);
    AskCompoundTables(*specification);
    AskManySpeeds(*specification);
    CDesignSpecifications::Destroy();
    return 0;
}
