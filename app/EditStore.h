// Settles what was entered for a specification with what others did to its file meanwhile: nothing
// of theirs goes without a way back, nor anything of the user's.
#pragma once

#include "library/ChangeByOthers.h"
#include "model/Differences.h"
#include "platform/mfc/Dialog.h"

class CEditStore {
public:
    enum class Result {
        AsUsual, // nobody has touched the file: what was entered is to be saved
        Done,    // nothing is left to be saved
        Back,    // the user goes on editing
    };

    // `opened` is the specification as the dialog opened with it, `filled` what the pages made of
    // that before anything was entered, `entered` what they hold now, with the name that was
    // entered. The windows belong to `owner`.
    CEditStore(const CDesignSpecification& opened, const CDesignSpecification& filled,
               const CDesignSpecification& entered, QWidget* owner);

    // Asks the user where both have changed something. Where nothing was entered theirs stays.
    Result Settle();

    // The project's folder is not there: says so and offers to save into a file or into another
    // project. Done when that was saved.
    static Result SaveElsewhere(const CDesignSpecification& entered, QWidget* owner);

private:
    using ChangeByOthers = designspec::ChangeByOthers;

    Result SettleChanged(const ChangeByOthers& change);
    Result SettleGone(const ChangeByOthers& change);
    // Who loses something, and gets a copy among the deleted ones.
    struct Aside {
        bool theirs = false;
        bool mine = false;
    };
    Result Keep(const CDesignSpecification& wanted, const ChangeByOthers& change, Aside aside);
    Result TakeTheirs();
    Result Told(const designspec::Outcome& outcome) const;
    static Result Told(const designspec::Outcome& outcome, QWidget* owner);
    static Result SaveAsFile(const CDesignSpecification& entered, QWidget* owner);
    static Result SaveToProject(const CDesignSpecification& entered, QWidget* owner);
    Result Tell(const CString& text) const;

    const CDesignSpecification& m_opened;
    const bool m_isEdited;
    const CDesignSpecification m_mine;
    QWidget* m_owner;
};
