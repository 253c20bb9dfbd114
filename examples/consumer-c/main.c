/*
 * Asks the default specification of a project, in C:
 *   cc -std=c99 main.c $(pkg-config --cflags --libs designspec-c) -o consumer-c
 *   ./consumer-c PROJECT        PROJECT is the folder that holds 规范
 */
#include <stdio.h>

#include <designspec.h>

#define SPEEDS 4

static int fail(void)
{
    fprintf(stderr, "%s\n", designspec_last_error());
    return 1;
}

static int ask(designspec_specification* specification)
{
    const int32_t speeds[SPEEDS] = {20, 55, 80, 120}; /* km/h */
    double radii[SPEEDS];
    uint8_t found[SPEEDS];
    designspec_table* table = NULL;
    size_t i = 0;
    if (designspec_table_of(specification, "CircularCurveRad.SuperelevationMinRad", &table) !=
        DESIGNSPEC_OK)
        return fail();
    if (designspec_query_many(table, speeds, SPEEDS, DESIGNSPEC_UPPER, radii, found) !=
        DESIGNSPEC_OK)
        return fail();
    for (i = 0; i < SPEEDS; ++i) {
        if (found[i])
            printf("%d km/h: %g m\n", (int)speeds[i], radii[i]);
        else
            printf("%d km/h: no answer\n", (int)speeds[i]);
    }
    designspec_table_free(table);
    return 0;
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
