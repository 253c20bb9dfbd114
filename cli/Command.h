// What every command has in common: how it ends, and the words it was called with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/mfc/String.h"

// Exit statuses.
enum Status : int {
    kDone = 0,       // done or answered
    kNoAnswer = 1,   // the query has no answer
    kWrongCall = 2,  // the call is wrong
    kFileFailed = 3, // a file or the project could not be read or written
};

inline Status StatusOf(bool done)
{
    return done ? kDone : kFileFailed;
}

// Ends a command from anywhere inside it.
struct CommandFailure {
    Status status;
    CString text; // for standard error
};

[[noreturn]] inline void Refuse(const CString& text)
{
    throw CommandFailure{kWrongCall, text};
}

// The words of the command line, as they were typed.
struct Arguments {
    std::string project; // empty: the current folder
    std::optional<std::string> spec;
    bool json = false;

    std::string path; // CRITERION or CRITERION.FIELD
    std::optional<std::string> value;
    std::optional<std::string> speed;
    std::optional<std::string> mode;
    std::optional<std::string> grad;
    std::optional<std::string> maxSuper;
    std::optional<std::string> radius;
    std::optional<std::string> tolerance;
    std::optional<std::string> car;
    bool unset = false;

    std::string name;
    std::string newName;
    std::optional<std::string> from;
    std::string file;
    std::vector<std::string> names;
    bool overwrite = false;
};

Status RunList(const Arguments& arguments);
Status RunShow(const Arguments& arguments);
Status RunQuery(const Arguments& arguments);
Status RunNew(const Arguments& arguments);
Status RunRename(const Arguments& arguments);
Status RunRemove(const Arguments& arguments);
Status RunDefault(const Arguments& arguments);
Status RunSet(const Arguments& arguments);
Status RunExport(const Arguments& arguments);
Status RunImport(const Arguments& arguments);
Status RunNames(const Arguments& arguments);
Status RunTemplate(const Arguments& arguments);
Status RunCheck(const Arguments& arguments);
