// What a command has saved in the library, to be taken back as one.
#pragma once

#include <optional>
#include <vector>

#include "model/DesignSpecification.h"

class QWidget;

namespace designspec {

struct SavedChange {
    std::optional<CDesignSpecification> before; // nothing: it was not in the library
    CDesignSpecification after;
};

// Takes down what is saved while it lives, each specification once. There is one at a time; who
// saves needs not know whether there is.
class ChangeLog {
public:
    ChangeLog();
    ~ChangeLog();
    ChangeLog(const ChangeLog&) = delete;
    ChangeLog& operator=(const ChangeLog&) = delete;

    // Without those that are as they were.
    std::vector<SavedChange> Changes() const;

    static void Tell(const std::optional<CDesignSpecification>& before,
                     const CDesignSpecification& after);

private:
    std::vector<SavedChange> m_changes;
};

// Makes the library what it was before, all of it or nothing: what is new goes to the deleted ones.
// Of a single one, what others did since stays, after a question. False, with a message, when it
// was not taken back.
bool TakeBack(const std::vector<SavedChange>& changes, QWidget* owner);

// What can be taken back, and what was, for the user.
CString SavedText(const std::vector<SavedChange>& changes);
CString TakenBackText(const std::vector<SavedChange>& changes);

} // namespace designspec
