// Which values count where two or three specifications differ, chosen step by step.
//
// Of two, left and right, a value of one side can be taken to the other. Of three, what was there
// and what two people made of it, one is made: mine are on the left, theirs on the right.
#pragma once

#include <vector>

#include "model/Differences.h"

namespace designspec {

enum class Choice : unsigned char {
    None,  // each side keeps its own; of three: a conflict that is not settled
    Left,  // the value of the left counts
    Right, // that of the right
};

class DifferenceChoices {
public:
    // Which of two can be changed. One that cannot is only there to take values from.
    struct Changeable {
        bool left = true;
        bool right = true;
    };

    DifferenceChoices() = default; // nothing differs
    // The name is listed when both are the same specification, and never taken.
    DifferenceChoices(const CDesignSpecification& left, const CDesignSpecification& right,
                      Changeable changeable);
    // At first a value counts that one alone has changed.
    DifferenceChoices(const CDesignSpecification& base, const CDesignSpecification& mine,
                      const CDesignSpecification& theirs);

    bool IsOfThree() const { return m_isOfThree; }
    // All values, those that are the same too, in the order of the pages. Places below are indices
    // into it.
    const std::vector<Change>& Values() const { return m_values; }
    bool IsDifferent(std::size_t value) const { return m_values[value].by != ChangedBy::Nobody; }

    Choice Of(std::size_t value) const { return m_choices[value]; }
    bool CanChoose(std::size_t value, Choice choice) const;
    // One step to be undone. What cannot be chosen is passed over; false when nothing is left.
    bool Choose(const std::vector<std::size_t>& values, Choice choice);
    bool CanUndo() const { return !m_undo.empty(); }
    bool CanRedo() const { return !m_redo.empty(); }
    void Undo();
    void Redo();

    // What a side has by what is chosen; nothing where it has no such value.
    const std::optional<CString>& Left(std::size_t value) const;
    const std::optional<CString>& Right(std::size_t value) const;
    // Whether something is taken to that side of two.
    bool IsLeftChanged() const;
    bool IsRightChanged() const;
    // How many conflicts of three are not settled.
    int Unsettled() const;
    // Whether all counts of three that the side has changed.
    bool IsAllOf(Choice side) const;

    // The sides of two with what was taken to them: names and identities are their own.
    CDesignSpecification MadeLeft() const;
    CDesignSpecification MadeRight() const;
    // The one that is made of three; of what is not settled mine counts.
    CDesignSpecification Made() const;

private:
    using Choices = std::vector<Choice>;

    void Begin(std::vector<Change> values);
    bool IsAnyChosen(Choice choice) const;
    CDesignSpecification MadeWith(Choice none) const; // in the place of None

    bool m_isOfThree = false;
    Changeable m_changeable;
    CDesignSpecification m_base, m_left, m_right;
    std::vector<Change> m_values;
    Choices m_choices;
    std::vector<Choices> m_undo, m_redo;
};

} // namespace designspec
