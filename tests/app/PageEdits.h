// One edit for each page of the editor, made on the specification in EveryPage.hds, where no
// limit stands twice: a limit stored in a wrong place shows.
#pragma once

#include <ostream>
#include <string>
#include <vector>

class QWidget;

// What an edit changes in the file.
struct FileChange {
    std::string from; // stands there once
    std::string to;
};

struct PageEdit {
    const char* criterion; // the criterion's element in the file
    const char* page;      // its label in the tree
    void (*edit)(QWidget* page);
    void (*look)(QWidget* page); // expects the page to show what `edit` entered
    std::vector<FileChange> changes;

    // How a failing test names it.
    friend void PrintTo(const PageEdit& edit, std::ostream* out) { *out << edit.page; }
};

// In the order of the tree. Each enters something in every field that its page stores.
const std::vector<PageEdit>& PageEdits();

// `text` with these changes made; the test fails when one has no place, or more than one.
std::string Changed(std::string text, const std::vector<FileChange>& changes);
