/*
 * Design specifications of roads for programs in C, and for every language that can call C.
 *
 * Handles are opaque. What a function hands out in its last argument is the caller's, and ends with
 * the function that its comment names; one that has ended, one of another kind and NULL are told
 * apart from it, and are a wrong call (DESIGNSPEC_WRONG_CALL), never a crash. A handle that still
 * exists keeps alive what it stands on: a specification outlives the library that it was found in,
 * a table outlives its specification.
 *
 * Texts are UTF-8 and end in a NUL. Those that a function hands out in its last argument end with
 * designspec_text_free; a const char* in a struct lives as long as the comment of its function
 * says. A path of a file is as the operating system has it.
 *
 * Every function that can fail returns a status and leaves its results as they were unless its
 * comment says otherwise. No exception and no abort comes out of any of them. Functions without a
 * status cannot fail.
 *
 * Threads: each library, and what was got from it, is used by one thread at a time; different
 * libraries at the same time by different threads, as many as one likes. The last error is each
 * thread's own.
 *
 * Promise: within one major version (DESIGNSPEC_VERSION_MAJOR) no function, no constant and no
 * member of a struct goes away or changes its meaning, and a program that was compiled against an
 * older minor version runs with a newer library. A struct that the caller fills begins with its
 * size, so that members can be added behind the others. A status that is not listed here may be
 * added for new functions.
 */
#ifndef DESIGNSPEC_H
#define DESIGNSPEC_H

#include <stddef.h>
#include <stdint.h>

#define DESIGNSPEC_VERSION_MAJOR 1
#define DESIGNSPEC_VERSION_MINOR 0

#if defined(DESIGNSPEC_BUILDING) && defined(_WIN32)
#define DESIGNSPEC_API __declspec(dllexport)
#elif defined(DESIGNSPEC_BUILDING)
#define DESIGNSPEC_API __attribute__((visibility("default")))
#else
#define DESIGNSPEC_API
#endif

/* In C++ as well a constant may have any value that the caller gives it. */
#ifdef __cplusplus
#define DESIGNSPEC_INT : int
extern "C" {
#else
#define DESIGNSPEC_INT
#endif

typedef struct designspec_library designspec_library;
typedef struct designspec_specification designspec_specification;
typedef struct designspec_table designspec_table;
typedef struct designspec_differences designspec_differences;
typedef struct designspec_road_check designspec_road_check;

typedef enum designspec_status DESIGNSPEC_INT {
    DESIGNSPEC_OK = 0,
    DESIGNSPEC_NO_ANSWER = 1,   /* the question was right, and there is no answer to it */
    DESIGNSPEC_WRONG_CALL = 2,  /* the caller's mistake: a handle, a path, a mode, a value */
    DESIGNSPEC_FILE_FAILED = 3, /* a file or a folder could not be read or written, or not whole */
    DESIGNSPEC_NO_MEMORY = 4,
    DESIGNSPEC_FAILED = 5 /* anything else; a fault of this library */
} designspec_status;

/* "1.0.0", of the library that runs. */
DESIGNSPEC_API const char* designspec_version(void);

/* ---- What went wrong ---- */

typedef struct designspec_problem {
    int is_error;     /* 0: worth knowing, nothing is missing */
    const char* file; /* empty: no file is meant */
    int line;         /* from 1; 0: the file as a whole */
    const char* text; /* the cause, for people (Chinese) */
} designspec_problem;

/*
 * The first error of this thread's last call that returned a status, "FILE:LINE: CAUSE" as far as
 * there are a file and a line; empty when that was done. Never NULL. Until this thread's next call.
 */
DESIGNSPEC_API const char* designspec_last_error(void);
/*
 * All that the last call had to tell, errors and notes, in order: its `index`th from 0. Its texts
 * live until this thread's next call that returns a status. designspec_last_problem returns 0, and
 * leaves `problem`, when there are not that many.
 */
DESIGNSPEC_API size_t designspec_last_problem_count(void);
DESIGNSPEC_API int designspec_last_problem(size_t index, designspec_problem* problem);

/* Does nothing for NULL. */
DESIGNSPEC_API void designspec_text_free(char* text);

/* ---- Libraries: the specifications of one project ---- */

/*
 * Opens the library of a project, whose folder holds the folder 规范; `folder` may be that one as
 * well. FILE_FAILED with a library all the same when single files could not be read whole: those
 * are left out, and designspec_last_problem names them. Ends with designspec_library_close.
 */
DESIGNSPEC_API designspec_status designspec_library_open(const char* folder,
                                                         designspec_library** library);
/*
 * The specifications of one file (.hds), or of a text in memory of that form, which is called
 * `name` where something is wrong with it. Nothing can be saved in such a library. FILE_FAILED as
 * above.
 */
DESIGNSPEC_API designspec_status designspec_library_read(const char* file,
                                                         designspec_library** library);
DESIGNSPEC_API designspec_status designspec_library_parse(const char* text, size_t size,
                                                          const char* name,
                                                          designspec_library** library);
/* WRONG_CALL when it is none, or was closed before. */
DESIGNSPEC_API designspec_status designspec_library_close(designspec_library* library);
/*
 * Reads the files anew. What was got before stands for the specifications of the same identity;
 * where there is none any more, its use is NO_ANSWER.
 */
DESIGNSPEC_API designspec_status designspec_library_reload(designspec_library* library);

DESIGNSPEC_API designspec_status designspec_library_count(const designspec_library* library,
                                                          size_t* count);
/*
 * By place, from 0; by name (ignoring case) or GUID; the default one. NO_ANSWER when there is none.
 * Each ends with designspec_specification_free.
 */
DESIGNSPEC_API designspec_status designspec_library_at(designspec_library* library, size_t index,
                                                       designspec_specification** found);
DESIGNSPEC_API designspec_status designspec_library_find(designspec_library* library,
                                                         const char* name_or_id,
                                                         designspec_specification** found);
DESIGNSPEC_API designspec_status designspec_library_default(designspec_library* library,
                                                            designspec_specification** found);
/* The specification must be one of the library, here and below. */
DESIGNSPEC_API designspec_status designspec_library_set_default(
    designspec_library* library, const designspec_specification* specification);

/*
 * Adds a copy behind the others, with an identity of its own and a name that is made unique (A,
 * A(1) ...), and saves it. `added` is as if it was found; it may be NULL.
 */
DESIGNSPEC_API designspec_status
designspec_library_add(designspec_library* library, const designspec_specification* specification,
                       designspec_specification** added);
/*
 * Writes the file of a specification that was changed. What others have written to it meanwhile is
 * kept among the deleted ones of the project, what it replaces in its history.
 */
DESIGNSPEC_API designspec_status
designspec_library_save(designspec_library* library, const designspec_specification* specification);
/* Gives it another name and saves it. WRONG_CALL for a name that the editor would not take. */
DESIGNSPEC_API designspec_status designspec_library_rename(designspec_library* library,
                                                           designspec_specification* specification,
                                                           const char* name);
/* Sets its file aside, among the deleted ones. */
DESIGNSPEC_API designspec_status designspec_library_remove(
    designspec_library* library, const designspec_specification* specification);
/*
 * Takes the named specifications of a file, or all when `count` is 0, into the library and saves
 * them; one of an identity that is there only when `overwrite` is not 0. `taken` is how many came;
 * it may be NULL.
 */
DESIGNSPEC_API designspec_status designspec_library_import(designspec_library* library,
                                                           const char* file,
                                                           const char* const* names, size_t count,
                                                           int overwrite, size_t* taken);
/* Writes the named ones, or all, into a file; what else that holds stays in it. */
DESIGNSPEC_API designspec_status designspec_library_export(const designspec_library* library,
                                                           const char* file,
                                                           const char* const* names, size_t count);

/* ---- Specifications ---- */

/* One with the built-in limits, of no library. Ends with designspec_specification_free. */
DESIGNSPEC_API designspec_status
designspec_specification_new(const char* name, designspec_specification** specification);
/* A copy that is of no library, of the same identity. */
DESIGNSPEC_API designspec_status designspec_specification_copy(
    const designspec_specification* specification, designspec_specification** copy);
/* WRONG_CALL when it is none, or was freed before. */
DESIGNSPEC_API designspec_status
designspec_specification_free(designspec_specification* specification);

DESIGNSPEC_API designspec_status
designspec_specification_name(const designspec_specification* specification, char** name);
DESIGNSPEC_API designspec_status
designspec_specification_id(const designspec_specification* specification, char** id);
/* The text of a file (.hds) that holds it alone. */
DESIGNSPEC_API designspec_status
designspec_specification_text(const designspec_specification* specification, char** text);

/*
 * Fields by their paths, as the command designspec takes them: CircularCurveRad.MaxRad,
 * CircularCurveRad.SuperelevationMinRad[80], LonGradMaxLen.rows[5].lengths[60], or labels. A value
 * is a text as files have it, or a number. NO_ANSWER when there is no such row; WRONG_CALL for a
 * path that means no value, and for a number where there is a text.
 */
DESIGNSPEC_API designspec_status designspec_get_text(const designspec_specification* specification,
                                                     const char* path, char** value);
DESIGNSPEC_API designspec_status designspec_get_number(
    const designspec_specification* specification, const char* path, double* value);
/*
 * Sets a value in memory; rows that are missing on the way are added. WRONG_CALL, and nothing
 * changed, for what the editor would refuse.
 */
DESIGNSPEC_API designspec_status designspec_set_text(designspec_specification* specification,
                                                     const char* path, const char* value);
DESIGNSPEC_API designspec_status designspec_set_number(designspec_specification* specification,
                                                       const char* path, double value);
/* Takes out the row of the key that the path ends with. WRONG_CALL when there is none. */
DESIGNSPEC_API designspec_status designspec_remove_row(designspec_specification* specification,
                                                       const char* path);

typedef enum designspec_kind DESIGNSPEC_INT {
    DESIGNSPEC_INTEGER = 0,
    DESIGNSPEC_DECIMAL = 1,
    DESIGNSPEC_FLAG = 2, /* 0 or 1 */
    DESIGNSPEC_TEXT = 3,
    DESIGNSPEC_INTEGER_TABLE = 4, /* by design speed */
    DESIGNSPEC_DECIMAL_TABLE = 5
} designspec_kind;

/* What a specification has, the same for each; texts live for ever. */
typedef struct designspec_field {
    const char* path;      /* keys of rows by what they are: LonGradMaxLen.rows[坡度].lengths */
    const char* criterion; /* LonGradMaxLen */
    const char* page;      /* what the criterion is called: 纵坡最大坡长 */
    const char* label;     /* what the field is called */
    const char* unit;      /* empty: none */
    designspec_kind kind;
} designspec_field;

/* Fields in the order of the editor's pages; 0, and `field` as it was, behind the last. */
DESIGNSPEC_API size_t designspec_field_count(void);
DESIGNSPEC_API int designspec_field_at(size_t index, designspec_field* field);

/* ---- Tables by design speed, and queries ---- */

/* What a speed between two of a table is answered by. */
typedef enum designspec_mode DESIGNSPEC_INT {
    DESIGNSPEC_NEAREST = 0,     /* the nearer speed's value; at equal distance the higher one's */
    DESIGNSPEC_UPPER = 1,       /* the next higher speed's value */
    DESIGNSPEC_LOWER = 2,       /* the next lower speed's value */
    DESIGNSPEC_INTERPOLATE = 3, /* between the two, in proportion; whole numbers are rounded */
    DESIGNSPEC_EXACT = 4        /* nothing */
} designspec_mode;

/* By the path of a table, as above. It ends with designspec_table_free. */
DESIGNSPEC_API designspec_status designspec_table_of(designspec_specification* specification,
                                                     const char* path, designspec_table** table);
/* The table of resultant gradients of a road type, 0 (城市道路) to 6 (其它道路). */
DESIGNSPEC_API designspec_status designspec_resultant_gradients(
    designspec_specification* specification, int road_type, designspec_table** table);
/* WRONG_CALL when it is none, or was freed before. */
DESIGNSPEC_API designspec_status designspec_table_free(designspec_table* table);

DESIGNSPEC_API designspec_status designspec_table_count(const designspec_table* table,
                                                        size_t* count);
/* By place, from 0: a speed (km/h) and its value. NO_ANSWER behind the last. */
DESIGNSPEC_API designspec_status designspec_table_at(const designspec_table* table, size_t index,
                                                     int32_t* speed, double* value);
/*
 * Puts `count` speeds and values in place of all; they stand highest speed first. WRONG_CALL, and
 * nothing changed, for what the editor would refuse: a speed twice or outside 10 to 150, a value
 * below 0, a decimal in a table of whole numbers.
 */
DESIGNSPEC_API designspec_status designspec_table_set(designspec_table* table,
                                                      const int32_t* speeds, const double* values,
                                                      size_t count);

/*
 * The limit for a design speed (km/h). Outside the table's speeds the nearest end answers, save
 * that UPPER has no answer above them, LOWER none below and EXACT neither; an empty table has none.
 * WRONG_CALL for a table of the other kind.
 */
DESIGNSPEC_API designspec_status designspec_query_integer(const designspec_table* table,
                                                          int32_t speed, designspec_mode mode,
                                                          int32_t* value);
DESIGNSPEC_API designspec_status designspec_query_decimal(const designspec_table* table,
                                                          int32_t speed, designspec_mode mode,
                                                          double* value);
/*
 * The same for many speeds, and tables of both kinds. `found[i]` is 1 and `values[i]` is written
 * where there is an answer; where there is none `found[i]` is 0 and `values[i]` is 0. `found` may
 * be NULL. OK whether all have an answer or not.
 */
DESIGNSPEC_API designspec_status designspec_query_many(const designspec_table* table,
                                                       const int32_t* speeds, size_t count,
                                                       designspec_mode mode, double* values,
                                                       uint8_t* found);
/* The maximum length (m) of a grade of that gradient (%). */
DESIGNSPEC_API designspec_status
designspec_query_grade_length(const designspec_specification* specification, double gradient,
                              int32_t speed, designspec_mode mode, int32_t* length);
/*
 * The superelevation (%) of a curve of `radius` m, in the table of the maximum superelevation (%);
 * `tolerance` (km/h) is how far the speed may lie outside the table's. Where there is no answer
 * `code`, which may be NULL, tells why: -1 the mode is INTERPOLATE, -2 there is no table for the
 * maximum, -3 the speed is above the table's or the mode has no answer at its end, -4 the speed is
 * below the table's, -5 the radius is in no range, 0 the mode is EXACT.
 */
DESIGNSPEC_API designspec_status designspec_query_superelevation(
    const designspec_specification* specification, int32_t maximum, int32_t speed,
    designspec_mode mode, int32_t tolerance, int32_t radius, int32_t* superelevation, int* code);
/*
 * The widening (m) of a lane for a design vehicle on a curve of `radius` m. `code`: -1 the range
 * has no entry for the vehicle, -2 the radius is above all ranges, -3 below all, -4 in none.
 */
DESIGNSPEC_API designspec_status
designspec_query_widening(const designspec_specification* specification, const char* vehicle,
                          int32_t radius, double* widening, int* code);

/* ---- Differences ---- */

typedef struct designspec_difference {
    const char* path;  /* "Name" for the name; empty for what this version does not know */
    const char* label; /* 设超高最小半径 */
    const char* key;   /* 车速 80 km/h; empty: it is in no table */
    const char* left;  /* as people read it, with unit; NULL: that side has none */
    const char* right;
} designspec_difference;

/* Where two differ, in the order of the editor's pages. Ends with designspec_differences_free. */
DESIGNSPEC_API designspec_status designspec_compare(const designspec_specification* left,
                                                    const designspec_specification* right,
                                                    designspec_differences** differences);
DESIGNSPEC_API designspec_status designspec_differences_free(designspec_differences* differences);
DESIGNSPEC_API designspec_status
designspec_differences_count(const designspec_differences* differences, size_t* count);
/* Its texts live as long as `differences`. NO_ANSWER behind the last. */
DESIGNSPEC_API designspec_status designspec_differences_at(
    const designspec_differences* differences, size_t index, designspec_difference* difference);
/*
 * Takes values of the right over to `specification`, which must still be as the left was, in
 * memory: those of which `taken[i]` is not 0, for each of the differences; all when it is NULL. Its
 * identity stays.
 */
DESIGNSPEC_API designspec_status
designspec_differences_apply(const designspec_differences* differences, const uint8_t* taken,
                             designspec_specification* specification);

/* ---- Road checks ---- */

typedef struct designspec_check_options {
    size_t size;   /* sizeof(designspec_check_options) */
    int32_t speed; /* design speed, km/h, for the whole road; 0: the file's own */
    designspec_mode mode;
    int road_type;        /* 0 (城市道路) to 6, for resultant gradients */
    int plateau;          /* not 0: take the reduction of gradients on plateaus */
    int snow;             /* not 0: take the limits of snowy and frozen regions */
    int max_super;        /* %, the table of superelevations; -1: that of the speed */
    int turns_about_edge; /* not 0: the carriageway turns about its edge */
    const char* vehicle;  /* design vehicle for widening; NULL: no widening is told */
} designspec_check_options;

/* The options that hold where nothing is said: mode UPPER, the file's own speeds. */
DESIGNSPEC_API void designspec_check_options_init(designspec_check_options* options);

typedef struct designspec_finding {
    const char* road;         /* the name of the alignment */
    const char* rule;         /* radius-min */
    const char* severity;     /* error, warning, note */
    const char* element;      /* line, curve, spiral, wholeCurve, grade, verticalCurve */
    int index;                /* of the element, from 1 */
    double from, to;          /* m along the alignment */
    const char* station_from; /* K0+123.456 */
    const char* station_to;
    int speed;           /* km/h; 0: no speed had to do with it */
    double value, limit; /* what the road has, what it is held against */
    const char* unit;
    const char* criterion; /* path of the limit */
    const char* source;    /* its data source */
    const char* message;
} designspec_finding;

/*
 * Holds the alignments of a road file (LandXML) against a specification; `options` NULL: as init
 * leaves them. FILE_FAILED when the file cannot be read; where it could only in part, or one of
 * several alignments has no design speed, there is a check of the rest all the same. WRONG_CALL
 * when there is no design speed at all, and for a vehicle that the specification does not have.
 * Ends with designspec_check_free.
 */
DESIGNSPEC_API designspec_status
designspec_check_file(const designspec_specification* specification, const char* file,
                      const designspec_check_options* options, designspec_road_check** check);
DESIGNSPEC_API designspec_status designspec_check_free(designspec_road_check* check);
DESIGNSPEC_API designspec_status designspec_check_count(const designspec_road_check* check,
                                                        size_t* count);
/* Its texts live as long as `check`. NO_ANSWER behind the last. */
DESIGNSPEC_API designspec_status designspec_check_at(const designspec_road_check* check,
                                                     size_t index, designspec_finding* finding);
/* All of it, what was not checked too, as roadcheck.schema.json describes it. */
DESIGNSPEC_API designspec_status designspec_check_json(const designspec_road_check* check,
                                                       char** json);

#ifdef __cplusplus
}
#endif

#endif
