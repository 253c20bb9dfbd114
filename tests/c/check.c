/*
 * The C interface as a program in C uses it. Prints each expectation that is not met, and ends with
 * how many those are.
 *   check PROJECT ROAD    PROJECT is an empty folder, ROAD a road file that violates limits
 */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "designspec.h"

#ifdef _WIN32
#include <windows.h>
#endif

/* Names of files are UTF-8 here as in the library. */
static FILE* open_to_write(const char* path)
{
#ifdef _WIN32
    wchar_t wide[1024];
    return MultiByteToWideChar(CP_UTF8, 0, path, -1, wide, 1024) ? _wfopen(wide, L"w") : NULL;
#else
    return fopen(path, "w");
#endif
}

static int failures = 0;

#define EXPECT(condition)                                                                          \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            ++failures;                                                                            \
            printf("%s:%d: %s (%s)\n", __FILE__, __LINE__, #condition, designspec_last_error());   \
        }                                                                                          \
    } while (0)
#define EXPECT_STATUS(call, status) EXPECT((call) == (status))
#define EXPECT_OK(call) EXPECT_STATUS(call, DESIGNSPEC_OK)

static char path_text[4096];

static const char* in(const char* folder, const char* name)
{
    snprintf(path_text, sizeof path_text, "%s/%s", folder, name);
    return path_text;
}

static int is_text(char* text, const char* wanted)
{
    const int same = text && strcmp(text, wanted) == 0;
    if (!same) printf("  %s for %s\n", text ? text : "NULL", wanted);
    designspec_text_free(text);
    return same;
}

/* Handles of every kind that has ended, of another kind, and none. */
static void wrong_handles(void)
{
    designspec_specification* one = NULL;
    designspec_specification* other = NULL;
    designspec_table* table = NULL;
    designspec_library* library = NULL;
    size_t count = 7;
    double number = 7;
    EXPECT_OK(designspec_specification_new("甲", &one));
    EXPECT(designspec_last_error()[0] == '\0');
    EXPECT_OK(designspec_specification_free(one));
    EXPECT_STATUS(designspec_specification_free(one), DESIGNSPEC_WRONG_CALL);
    EXPECT(strcmp(designspec_last_error(), "不是设计规范的句柄,或已释放") == 0);
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.MaxRad", &number),
                  DESIGNSPEC_WRONG_CALL);
    /* The place of the freed one is taken: it is known as freed nevertheless. */
    EXPECT_OK(designspec_specification_new("乙", &other));
    EXPECT(other != one);
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.MaxRad", &number),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_library_count((designspec_library*)other, &count),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_table_count((designspec_table*)other, &count), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_library_close(NULL), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_table_free((designspec_table*)&count), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_get_number(other, NULL, &number), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_get_number(other, "CircularCurveRad.MaxRad", NULL),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_specification_new(NULL, &one), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_specification_new("\xff", &one), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_specification_new("a/b", &one), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_table_of(other, "CircularCurveRad", &table), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_table_of(other, "LonGradMaxLen.rows", &table), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_library_open("/no/such/folder", &library), DESIGNSPEC_FILE_FAILED);
    EXPECT(count == 7 && number == 7 && !table && !library);
    EXPECT(strcmp(designspec_last_error(), "/no/such/folder: 文件夹不存在") == 0);
    EXPECT_OK(designspec_specification_free(other));
}

static void fields(void)
{
    designspec_specification* one = NULL;
    designspec_field field;
    char* text = NULL;
    double number = 0;
    size_t i = 0;
    size_t tables = 0;
    EXPECT_OK(designspec_specification_new("甲", &one));
    EXPECT_OK(designspec_get_number(one, "CircularCurveRad.MaxRad", &number));
    EXPECT(number == 10000);
    EXPECT_OK(designspec_set_number(one, "CircularCurveRad.MaxRad", 8000));
    EXPECT_OK(designspec_get_text(one, "圆曲线半径.圆曲线最大半径", &text));
    EXPECT(is_text(text, "8000"));
    EXPECT_STATUS(designspec_set_number(one, "CircularCurveRad.MaxRad", 0.5),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_set_text(one, "CircularCurveRad.MaxRad", "x"), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_set_text(one, "CircularCurveRad.MinRadCriterion", "《规范》3.2"));
    EXPECT_OK(designspec_get_text(one, "CircularCurveRad.MinRadCriterion", &text));
    EXPECT(is_text(text, "《规范》3.2"));
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.MinRadCriterion", &number),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.SuperelevationMinRad", &number),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.SuperelevationMinRad[77]", &number),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_set_number(one, "CircularCurveRad.SuperelevationMinRad[70]", 200));
    EXPECT_OK(designspec_get_number(one, "CircularCurveRad.SuperelevationMinRad[70]", &number));
    EXPECT(number == 200);
    EXPECT_OK(designspec_remove_row(one, "CircularCurveRad.SuperelevationMinRad[70]"));
    EXPECT_STATUS(designspec_remove_row(one, "CircularCurveRad.SuperelevationMinRad[70]"),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_get_number(one, "Nothing.At.All", &number), DESIGNSPEC_WRONG_CALL);

    EXPECT(designspec_field_count() > 40);
    for (i = 0; designspec_field_at(i, &field); ++i) {
        designspec_table* table = NULL;
        EXPECT(field.path[0] && field.label[0] && field.page[0]);
        EXPECT(strncmp(field.path, field.criterion, strlen(field.criterion)) == 0);
        if (field.kind < DESIGNSPEC_INTEGER_TABLE || strchr(field.path, '[')) continue;
        ++tables;
        EXPECT_OK(designspec_table_of(one, field.path, &table));
        EXPECT_OK(designspec_table_free(table));
    }
    EXPECT(i == designspec_field_count() && tables > 20);
    EXPECT_OK(designspec_specification_free(one));
}

static void queries(void)
{
    designspec_specification* one = NULL;
    designspec_table* radii = NULL;
    designspec_table* gradients = NULL;
    const int32_t speeds[] = {80, 70, 10, 200, 60};
    double values[5];
    uint8_t found[5];
    int32_t whole = 7;
    int32_t speed = 0;
    double decimal = 7;
    int code = 7;
    size_t count = 0;
    EXPECT_OK(designspec_specification_new("甲", &one));
    EXPECT_OK(designspec_table_of(one, "CircularCurveRad.SuperelevationMinRad", &radii));
    EXPECT_OK(designspec_resultant_gradients(one, 0, &gradients));
    EXPECT_STATUS(designspec_resultant_gradients(one, 7, &gradients), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_query_integer(radii, 70, DESIGNSPEC_UPPER, &whole));
    EXPECT(whole == 250);
    EXPECT_OK(designspec_query_integer(radii, 70, DESIGNSPEC_LOWER, &whole));
    EXPECT(whole == 150);
    EXPECT_OK(designspec_query_integer(radii, 70, DESIGNSPEC_INTERPOLATE, &whole));
    EXPECT(whole == 200);
    EXPECT_STATUS(designspec_query_integer(radii, 70, DESIGNSPEC_EXACT, &whole),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT_STATUS(designspec_query_integer(radii, 70, (designspec_mode)9, &whole),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_query_integer(gradients, 70, DESIGNSPEC_UPPER, &whole),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_query_decimal(radii, 70, DESIGNSPEC_UPPER, &decimal),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT(whole == 200 && decimal == 7);
    EXPECT_OK(designspec_query_decimal(gradients, 60, DESIGNSPEC_EXACT, &decimal));
    EXPECT(decimal == 6.5);

    EXPECT_OK(designspec_query_many(radii, speeds, 5, DESIGNSPEC_UPPER, values, found));
    EXPECT(values[0] == 250 && values[1] == 250 && values[2] == 20 && values[4] == 150);
    EXPECT(found[0] && found[2] && !found[3] && values[3] == 0);
    EXPECT_OK(designspec_query_many(gradients, speeds, 5, DESIGNSPEC_NEAREST, values, NULL));
    EXPECT(values[0] == 7 && values[4] == 6.5);
    EXPECT_OK(designspec_query_many(radii, NULL, 0, DESIGNSPEC_UPPER, NULL, NULL));
    EXPECT_STATUS(designspec_query_many(radii, NULL, 1, DESIGNSPEC_UPPER, values, NULL),
                  DESIGNSPEC_WRONG_CALL);

    EXPECT_OK(designspec_query_grade_length(one, 6, 60, DESIGNSPEC_EXACT, &whole));
    EXPECT(whole == 400);
    EXPECT_STATUS(designspec_query_grade_length(one, NAN, 60, DESIGNSPEC_EXACT, &whole),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_query_grade_length(one, 5.8, 60, DESIGNSPEC_EXACT, &whole),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(
        designspec_query_superelevation(one, 6, 80, DESIGNSPEC_NEAREST, 0, 250, &whole, &code));
    EXPECT(whole == 6 && code == 0);
    EXPECT_STATUS(
        designspec_query_superelevation(one, 9, 80, DESIGNSPEC_NEAREST, 0, 250, &whole, &code),
        DESIGNSPEC_NO_ANSWER);
    EXPECT(code == -2 && whole == 6);
    EXPECT_OK(designspec_query_widening(one, "普通汽车", 220, &decimal, NULL));
    EXPECT(decimal == 0.4);
    EXPECT_STATUS(designspec_query_widening(one, "普通汽车", 5, &decimal, &code),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT(code == -3);

    EXPECT_OK(designspec_table_count(radii, &count));
    EXPECT(count == 6);
    EXPECT_OK(designspec_table_at(radii, 0, &speed, &decimal));
    EXPECT(speed == 80 && decimal == 250);
    EXPECT_STATUS(designspec_table_at(radii, 6, &speed, &decimal), DESIGNSPEC_NO_ANSWER);
    {
        const int32_t mine[] = {40, 100, 60};
        const double limits[] = {70, 400, 160};
        const double half[] = {70.5, 400, 160};
        const int32_t twice[] = {40, 40, 60};
        const int32_t odd[] = {40, 151, 60};
        const double below[] = {70, -1, 160};
        EXPECT_OK(designspec_table_set(radii, mine, limits, 3));
        EXPECT_OK(designspec_table_at(radii, 0, &speed, &decimal));
        EXPECT(speed == 100 && decimal == 400);
        EXPECT_STATUS(designspec_table_set(radii, mine, half, 3), DESIGNSPEC_WRONG_CALL);
        EXPECT_STATUS(designspec_table_set(radii, twice, limits, 3), DESIGNSPEC_WRONG_CALL);
        EXPECT_STATUS(designspec_table_set(radii, odd, limits, 3), DESIGNSPEC_WRONG_CALL);
        EXPECT(strstr(designspec_last_error(), "车速 必须大于等于 10 并且小于等于 150"));
        EXPECT_STATUS(designspec_table_set(radii, mine, below, 3), DESIGNSPEC_WRONG_CALL);
        EXPECT(strstr(designspec_last_error(), "值不能小于 0"));
        EXPECT_OK(designspec_table_count(radii, &count));
        EXPECT(count == 3);
        EXPECT_OK(designspec_table_set(radii, NULL, NULL, 0));
        EXPECT_STATUS(designspec_query_integer(radii, 60, DESIGNSPEC_NEAREST, &whole),
                      DESIGNSPEC_NO_ANSWER);
    }
    {
        /* A table that is not in use can be filled before it is. */
        const int32_t mine[] = {80, 60};
        const double limits[] = {2000, 1000};
        const char* const unused = "TransitionCurveMinLen.NoTCBySuperelevation";
        EXPECT_OK(designspec_table_free(radii));
        EXPECT_OK(designspec_table_of(one, "TransitionCurveMinLen.NoTCByMinRad", &radii));
        EXPECT_OK(designspec_set_number(one, unused, 1));
        EXPECT_OK(designspec_table_set(radii, NULL, NULL, 0));
        EXPECT_STATUS(designspec_set_number(one, unused, 0), DESIGNSPEC_WRONG_CALL);
        EXPECT_OK(designspec_table_set(radii, mine, limits, 2));
        EXPECT_OK(designspec_set_number(one, unused, 0));
        EXPECT_OK(designspec_query_integer(radii, 80, DESIGNSPEC_EXACT, &whole));
        EXPECT(whole == 2000);
    }
    /* A table keeps alive what it stands on. */
    EXPECT_OK(designspec_specification_free(one));
    EXPECT_OK(designspec_query_decimal(gradients, 60, DESIGNSPEC_EXACT, &decimal));
    EXPECT_OK(designspec_table_free(radii));
    EXPECT_OK(designspec_table_free(gradients));
    EXPECT_STATUS(designspec_table_free(gradients), DESIGNSPEC_WRONG_CALL);
}

static void libraries(const char* project)
{
    designspec_library* library = NULL;
    designspec_library* other = NULL;
    designspec_specification* made = NULL;
    designspec_specification* one = NULL;
    designspec_specification* found = NULL;
    designspec_problem problem;
    const char* names[] = {"甲"};
    char* text = NULL;
    size_t count = 7;
    double number = 0;
    FILE* file = NULL;
    EXPECT_OK(designspec_library_open(project, &library));
    EXPECT_OK(designspec_library_count(library, &count));
    EXPECT(count == 0);
    EXPECT_STATUS(designspec_library_default(library, &found), DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_specification_new("甲", &made));
    EXPECT_OK(designspec_library_add(library, made, &one));
    EXPECT_OK(designspec_library_add(library, made, NULL));
    EXPECT_OK(designspec_library_count(library, &count));
    EXPECT(count == 2);
    EXPECT_OK(designspec_library_at(library, 1, &found));
    EXPECT_OK(designspec_specification_name(found, &text));
    EXPECT(is_text(text, "甲(1)"));
    EXPECT_STATUS(designspec_library_at(library, 2, &found), DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_library_rename(library, found, "乙"));
    EXPECT_STATUS(designspec_library_rename(library, found, "甲"), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_library_save(library, made), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_library_set_default(library, found));
    EXPECT_OK(designspec_set_number(one, "CircularCurveRad.MaxRad", 9000));
    EXPECT_OK(designspec_library_save(library, one));

    /* Another handle of the same folder, side by side. */
    EXPECT_OK(designspec_library_open(project, &other));
    EXPECT_OK(designspec_specification_free(found));
    EXPECT_OK(designspec_library_default(other, &found));
    EXPECT_OK(designspec_specification_name(found, &text));
    EXPECT(is_text(text, "乙"));
    EXPECT_OK(designspec_specification_free(found));
    EXPECT_OK(designspec_library_find(other, "甲", &found));
    EXPECT_OK(designspec_get_number(found, "CircularCurveRad.MaxRad", &number));
    EXPECT(number == 9000);
    EXPECT_OK(designspec_library_export(other, in(project, "a.hds"), names, 1));
    EXPECT_OK(designspec_library_remove(other, found));
    EXPECT_STATUS(designspec_get_number(found, "CircularCurveRad.MaxRad", &number),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_specification_free(found));
    EXPECT_OK(designspec_library_reload(library));
    EXPECT_STATUS(designspec_get_number(one, "CircularCurveRad.MaxRad", &number),
                  DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_library_import(library, in(project, "a.hds"), NULL, 0, 0, &count));
    EXPECT(count == 1);
    /* It is there again, under the handle of before. */
    EXPECT_OK(designspec_get_number(one, "CircularCurveRad.MaxRad", &number));
    EXPECT(number == 9000);
    EXPECT_OK(designspec_library_close(other));

    EXPECT_OK(designspec_library_read(in(project, "a.hds"), &other));
    EXPECT_OK(designspec_library_count(other, &count));
    EXPECT(count == 1);
    EXPECT_STATUS(designspec_library_reload(other), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_library_close(other));
    EXPECT_STATUS(designspec_library_count(other, &count), DESIGNSPEC_WRONG_CALL);

    EXPECT_OK(designspec_specification_text(one, &text));
    EXPECT_OK(designspec_library_parse(text, strlen(text), "memory", &other));
    EXPECT_OK(designspec_library_at(other, 0, &found));
    EXPECT_OK(designspec_library_close(other));
    /* A specification outlives its library. */
    EXPECT_OK(designspec_get_number(found, "CircularCurveRad.MaxRad", &number));
    EXPECT_OK(designspec_specification_free(found));
    designspec_text_free(text);
    EXPECT_STATUS(designspec_library_parse("<a>\n<b>", 7, "memory", &other),
                  DESIGNSPEC_FILE_FAILED);
    EXPECT(designspec_last_problem_count() == 1 && designspec_last_problem(0, &problem));
    EXPECT(strcmp(problem.file, "memory") == 0 && problem.line == 2 && problem.is_error);
    EXPECT(!designspec_last_problem(1, &problem));

    /* What can be read is there, what cannot is named. */
    file = open_to_write(in(project, "规范/b.hds"));
    EXPECT(file && fputs("<a", file) >= 0 && fclose(file) == 0);
    EXPECT_STATUS(designspec_library_open(project, &other), DESIGNSPEC_FILE_FAILED);
    EXPECT(strstr(designspec_last_error(), "b.hds:1: "));
    EXPECT_OK(designspec_library_count(other, &count));
    EXPECT(count == 2);
    EXPECT_OK(designspec_library_close(other));

    EXPECT_OK(designspec_specification_free(one));
    EXPECT_OK(designspec_specification_free(made));
    EXPECT_OK(designspec_library_close(library));
}

static void differences(void)
{
    designspec_specification* left = NULL;
    designspec_specification* right = NULL;
    designspec_differences* list = NULL;
    designspec_difference one;
    const uint8_t second[] = {0, 1};
    size_t count = 0;
    double number = 0;
    EXPECT_OK(designspec_specification_new("甲", &left));
    EXPECT_OK(designspec_specification_copy(left, &right));
    EXPECT_OK(designspec_compare(left, right, &list));
    EXPECT_OK(designspec_differences_count(list, &count));
    EXPECT(count == 0);
    EXPECT_OK(designspec_differences_free(list));
    EXPECT_OK(designspec_set_number(right, "CircularCurveRad.MaxRad", 9000));
    EXPECT_OK(designspec_set_number(right, "CircularCurveRad.SuperelevationMinRad[80]", 260));
    EXPECT_OK(designspec_compare(left, right, &list));
    EXPECT_OK(designspec_differences_count(list, &count));
    EXPECT(count == 2);
    EXPECT_OK(designspec_differences_at(list, 1, &one));
    EXPECT(strcmp(one.path, "CircularCurveRad.SuperelevationMinRad[80]") == 0);
    EXPECT(strcmp(one.key, "车速 80 km/h") == 0);
    EXPECT(one.left && strcmp(one.left, "250 m") == 0);
    EXPECT(one.right && strcmp(one.right, "260 m") == 0);
    EXPECT_STATUS(designspec_differences_at(list, 2, &one), DESIGNSPEC_NO_ANSWER);
    EXPECT_OK(designspec_differences_apply(list, second, left));
    EXPECT_OK(designspec_get_number(left, "CircularCurveRad.SuperelevationMinRad[80]", &number));
    EXPECT(number == 260);
    EXPECT_OK(designspec_get_number(left, "CircularCurveRad.MaxRad", &number));
    EXPECT(number == 10000);
    /* It is not as it was compared any more. */
    EXPECT_STATUS(designspec_differences_apply(list, NULL, left), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_differences_free(list));
    EXPECT_STATUS(designspec_differences_free(list), DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_specification_free(left));
    EXPECT_OK(designspec_specification_free(right));
}

/* Two roads, of which one has a design speed. */
static const char two_roads[] =
    "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2' version='1.2'>"
    "<Units><Metric linearUnit='meter' areaUnit='squareMeter' volumeUnit='cubicMeter' "
    "temperatureUnit='celsius' pressureUnit='HPA'/></Units>"
    "<Alignments><Alignment name='a' length='50' staStart='0'>"
    "<CoordGeom><Curve rot='cw' radius='20' length='50' crvType='arc'/></CoordGeom></Alignment>"
    "<Alignment name='b' length='50' staStart='0'>"
    "<CoordGeom><Curve rot='cw' radius='20' length='50' crvType='arc'/></CoordGeom></Alignment>"
    "</Alignments><Roadways><Roadway name='a' alignmentRefs='a'><Speeds>"
    "<DesignSpeed speed='60' staStart='0' staEnd='50'/></Speeds></Roadway></Roadways></LandXML>";

static void roads_without_speed(const char* project)
{
    designspec_specification* limits = NULL;
    designspec_road_check* check = NULL;
    designspec_check_options options;
    designspec_finding finding;
    size_t i = 0;
    FILE* file = open_to_write(in(project, "two.xml"));
    EXPECT(file && fputs(two_roads, file) >= 0 && fclose(file) == 0);
    EXPECT_OK(designspec_specification_new("甲", &limits));
    EXPECT_STATUS(designspec_check_file(limits, in(project, "two.xml"), NULL, &check),
                  DESIGNSPEC_FILE_FAILED);
    EXPECT(strstr(designspec_last_error(), "two.xml: 路线“b”没有设计车速"));
    for (i = 0; designspec_check_at(check, i, &finding) == DESIGNSPEC_OK; ++i)
        EXPECT(strcmp(finding.road, "a") == 0);
    EXPECT(i > 0);
    EXPECT_OK(designspec_check_free(check));
    designspec_check_options_init(&options);
    options.speed = 40;
    EXPECT_OK(designspec_check_file(limits, in(project, "two.xml"), &options, &check));
    EXPECT_OK(designspec_check_free(check));
    options.speed = -1;
    EXPECT_STATUS(designspec_check_file(limits, in(project, "two.xml"), &options, &check),
                  DESIGNSPEC_WRONG_CALL);
    EXPECT_OK(designspec_specification_free(limits));
}

static void road_checks(const char* road)
{
    designspec_specification* limits = NULL;
    designspec_road_check* check = NULL;
    designspec_check_options options;
    designspec_finding finding;
    char* json = NULL;
    size_t count = 0;
    size_t errors = 0;
    size_t more = 0;
    size_t i = 0;
    EXPECT_OK(designspec_specification_new("甲", &limits));
    EXPECT_OK(designspec_check_file(limits, road, NULL, &check));
    EXPECT_OK(designspec_check_count(check, &count));
    EXPECT(count > 10);
    for (i = 0; designspec_check_at(check, i, &finding) == DESIGNSPEC_OK; ++i) {
        EXPECT(finding.rule[0] && finding.message[0] && strstr(finding.station_from, "K"));
        EXPECT(finding.from <= finding.to);
        errors += strcmp(finding.severity, "error") == 0;
    }
    EXPECT(i == count && errors > 0);
    EXPECT_OK(designspec_check_json(check, &json));
    EXPECT(json && json[0] == '{' && strstr(json, "\"radius-min\""));
    designspec_text_free(json);
    EXPECT_OK(designspec_check_free(check));
    EXPECT_STATUS(designspec_check_count(check, &count), DESIGNSPEC_WRONG_CALL);

    designspec_check_options_init(&options);
    options.vehicle = "普通汽车";
    EXPECT_OK(designspec_check_file(limits, road, &options, &check));
    EXPECT_OK(designspec_check_count(check, &more));
    EXPECT(more > count);
    EXPECT_OK(designspec_check_free(check));
    options.vehicle = "马车";
    EXPECT_STATUS(designspec_check_file(limits, road, &options, &check), DESIGNSPEC_WRONG_CALL);
    EXPECT(strstr(designspec_last_error(), "没有车型“马车”"));
    designspec_check_options_init(&options);
    options.road_type = 7;
    EXPECT_STATUS(designspec_check_file(limits, road, &options, &check), DESIGNSPEC_WRONG_CALL);
    designspec_check_options_init(&options);
    options.mode = (designspec_mode)9;
    EXPECT_STATUS(designspec_check_file(limits, road, &options, &check), DESIGNSPEC_WRONG_CALL);
    designspec_check_options_init(&options);
    options.size = 0;
    EXPECT_STATUS(designspec_check_file(limits, road, &options, &check), DESIGNSPEC_WRONG_CALL);
    EXPECT_STATUS(designspec_check_file(limits, "/no/such/road.xml", NULL, &check),
                  DESIGNSPEC_FILE_FAILED);
    EXPECT(strncmp(designspec_last_error(), "/no/such/road.xml: ", 19) == 0);
    EXPECT_OK(designspec_specification_free(limits));
}

int main(int argc, char** argv)
{
    if (argc != 3) return 99;
    EXPECT(designspec_version()[0] == '0' + DESIGNSPEC_VERSION_MAJOR);
    wrong_handles();
    fields();
    queries();
    libraries(argv[1]);
    differences();
    road_checks(argv[2]);
    roads_without_speed(argv[1]);
    printf("%d\n", failures);
    return failures;
}
