// What every command has in common: how it ends, and the words it was called with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Teller.h"
#include "platform/mfc/String.h"

// Exit statuses.
enum Status : int {
    kDone = 0,       // done or answered
    kNoAnswer = 1,   // no answer, nothing to do, or two that are not the same
    kWrongCall = 2,  // the call is wrong, or asks for what the editor refuses
    kFileFailed = 3, // a file or the project could not be read or written
};

// Ends a command from anywhere inside it.
struct CommandFailure {
    Status status;
    CString text; // for standard error
};

[[noreturn]] inline void Refuse(const CString& text)
{
    throw CommandFailure{kWrongCall, text};
}

// Those of verify alone, as they were typed.
struct VerifyArguments {
    std::vector<std::string> files;
    std::vector<std::string> speeds;
    std::vector<std::string> alignments;
    std::optional<std::string> roadType;
    std::optional<std::string> axis;
    std::optional<std::string> report;
    std::optional<std::string> jobs;
    bool plateau = false;
    bool snow = false;
};

// The words of the command line, as they were typed.
struct Arguments {
    std::string project;             // empty: the current folder
    std::vector<std::string> specs;  // as often as --spec is given
    std::optional<std::string> spec; // the first of them
    bool json = false;
    std::optional<std::string> wait; // seconds that another program may keep the project

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
    std::optional<std::string> add; // to what stands there
    std::optional<std::string> scale;

    std::string name;
    std::string newName;
    std::optional<std::string> from;
    std::optional<std::string> newSpec;
    std::string file;
    std::vector<std::string> names; // further words
    std::optional<std::string> output;
    std::optional<std::string> prefer;
    bool overwrite = false;
    bool force = false;                 // what the editor refuses
    bool deleted = false;               // those that were removed
    std::optional<std::string> version; // a number, or a local time
    bool dryRun = false;                // tell what would change
    bool all = false;                   // specifications
    bool together = false;              // in one workbook

    VerifyArguments verify;
};

Status RunList(const Arguments& arguments, Teller& teller);
Status RunShow(const Arguments& arguments, Teller& teller);
Status RunDiff(const Arguments& arguments, Teller& teller);
Status RunMerge(const Arguments& arguments, Teller& teller);
Status RunReport(const Arguments& arguments, Teller& teller);
Status RunQuery(const Arguments& arguments, Teller& teller);
Status RunNew(const Arguments& arguments, Teller& teller);
Status RunRename(const Arguments& arguments, Teller& teller);
Status RunRemove(const Arguments& arguments, Teller& teller);
Status RunHistory(const Arguments& arguments, Teller& teller);
Status RunRestore(const Arguments& arguments, Teller& teller);
Status RunDefault(const Arguments& arguments, Teller& teller);
Status RunApply(const Arguments& arguments, Teller& teller);
Status RunSet(const Arguments& arguments, Teller& teller);
Status RunSheetWrite(const Arguments& arguments, Teller& teller);
Status RunSheetRead(const Arguments& arguments, Teller& teller);
Status RunExport(const Arguments& arguments, Teller& teller);
Status RunImport(const Arguments& arguments, Teller& teller);
Status RunNames(const Arguments& arguments, Teller& teller);
Status RunTemplate(const Arguments& arguments, Teller& teller);
Status RunVerify(const Arguments& arguments, Teller& teller);
// The rules that verify holds roads against, below a heading.
std::string RulesHelp(const char* heading);
Status RunCheck(const Arguments& arguments, Teller& teller);
