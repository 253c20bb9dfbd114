/*
 * Asks the default specification of a project each of the library's queries once, in C:
 *   cc -std=c99 main.c $(pkg-config --cflags --libs designspec-c) -o consumer-c
 *   ./consumer-c PROJECT        PROJECT is the folder that holds 规范
 */
#include <stdio.h>

#include <designspec.h>

#define SPEED 55   /* km/h, between two speeds of the tables */
#define RADIUS 180 /* m */
#define SPEEDS 4

static int fail(void)
{
    fprintf(stderr, "%s\n", designspec_last_error());
    return 1;
}

/* Prints what a query gave; 1 when it could not be asked. */
static int show(const char* what, designspec_status status, double value)
{
    if (status == DESIGNSPEC_OK)
        printf("%s: %g\n", what, value);
    else if (status == DESIGNSPEC_NO_ANSWER)
        printf("%s: no answer\n", what);
    else
        return fail();
    return 0;
}

static int ask_radius(designspec_specification* specification, const char* path)
{
    designspec_table* table = NULL;
    int32_t radius = 0;
    int failed = 0;
    designspec_status status = designspec_table_of(specification, path, &table);
    if (status == DESIGNSPEC_OK)
        status = designspec_query_integer(table, SPEED, DESIGNSPEC_INTERPOLATE, &radius);
    failed = show(path, status, radius);
    designspec_table_free(table);
    return failed;
}

static int ask_gradient(designspec_specification* specification, const char* path, int32_t speed,
                        designspec_mode mode)
{
    designspec_table* table = NULL;
    double gradient = 0;
    int failed = 0;
    designspec_status status = designspec_table_of(specification, path, &table);
    if (status == DESIGNSPEC_OK) status = designspec_query_decimal(table, speed, mode, &gradient);
    failed = show(path, status, gradient);
    designspec_table_free(table);
    return failed;
}

static int ask_compound_tables(const designspec_specification* specification)
{
    int32_t length = 0, superelevation = 0;
    double widening = 0;
    designspec_status status =
        designspec_query_grade_length(specification, 6.5, 50, DESIGNSPEC_NEAREST, &length);
    int failed = show("LonGradMaxLen", status, length);
    status = designspec_query_superelevation(specification, 4, 60, DESIGNSPEC_NEAREST, 10, RADIUS,
                                             &superelevation, NULL);
    failed |= show("SuperElevation", status, superelevation);
    status = designspec_query_widening(specification, "铰接车", RADIUS, &widening, NULL);
    return failed | show("CurveWidening", status, widening);
}

static int ask_many(designspec_specification* specification, const char* path)
{
    const int32_t speeds[SPEEDS] = {20, 55, 80, 120}; /* km/h */
    double radii[SPEEDS];
    uint8_t found[SPEEDS];
    designspec_table* table = NULL;
    size_t i = 0;
    designspec_status status = designspec_table_of(specification, path, &table);
    if (status == DESIGNSPEC_OK)
        status = designspec_query_many(table, speeds, SPEEDS, DESIGNSPEC_UPPER, radii, found);
    designspec_table_free(table);
    if (status != DESIGNSPEC_OK) return fail();
    for (i = 0; i < SPEEDS; ++i) {
        printf("%d ", (int)speeds[i]);
        show("km/h", found[i] ? DESIGNSPEC_OK : DESIGNSPEC_NO_ANSWER, radii[i]);
    }
    return 0;
}

static int ask(designspec_specification* specification)
{
    char* name = NULL;
    if (designspec_specification_name(specification, &name) != DESIGNSPEC_OK) return fail();
    printf("%s\n", name);
    designspec_text_free(name);
    return ask_radius(specification, "CircularCurveRad.noSuperelevationMinRad") ||
           ask_gradient(specification, "LonGrad.MaxGradRecommendedValues", SPEED,
                        DESIGNSPEC_UPPER) ||
           ask_gradient(specification, "MaxResultantGrad.CityRoad", 60, DESIGNSPEC_EXACT) ||
           ask_compound_tables(specification) ||
           ask_many(specification, "CircularCurveRad.SuperelevationMinRad");
}

int main(int argc, char** argv)
{
    designspec_library* library = NULL;
    designspec_specification* specification = NULL;
    int status = 1;
    if (argc != 2) return 2;
    if (designspec_library_open(argv[1], &library) != DESIGNSPEC_OK) return fail();
    if (designspec_library_default(library, &specification) == DESIGNSPEC_OK)
        status = ask(specification);
    else
        fail();
    designspec_specification_free(specification);
    designspec_library_close(library);
    return status;
}
