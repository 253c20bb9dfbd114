#include "compare/DifferenceChoices.h"

#include <algorithm>
#include <utility>

namespace designspec {

namespace {

constexpr wchar_t kName[] = L"Name"; // the path of the name

Choice FirstChoice(ChangedBy by)
{
    switch (by) {
    case ChangedBy::Me:
        return Choice::Left;
    case ChangedBy::Them:
        return Choice::Right;
    default:
        return Choice::None;
    }
}

} // namespace

DifferenceChoices::DifferenceChoices(const CDesignSpecification& left,
                                     const CDesignSpecification& right, Changeable changeable)
    : m_changeable(changeable), m_base(left), m_left(left), m_right(right)
{
    std::vector<Change> values = AllValues(left, left, right);
    if (!left.HasID(right.ID()))
        std::erase_if(values, [](const Change& one) { return one.path == kName; });
    Begin(std::move(values));
}

DifferenceChoices::DifferenceChoices(const CDesignSpecification& base,
                                     const CDesignSpecification& mine,
                                     const CDesignSpecification& theirs)
    : m_isOfThree(true), m_base(base), m_left(mine), m_right(theirs)
{
    Begin(AllValues(base, mine, theirs));
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_choices[i] = FirstChoice(m_values[i].by);
}

void DifferenceChoices::Begin(std::vector<Change> values)
{
    m_values = std::move(values);
    m_choices.assign(m_values.size(), Choice::None);
}

bool DifferenceChoices::CanChoose(std::size_t value, Choice choice) const
{
    const Change& one = m_values[value];
    if (!IsDifferent(value) || one.by == ChangedBy::Both) return false;
    if (m_isOfThree) return choice != Choice::None || one.by == ChangedBy::Conflict;
    if (one.path == kName) return false;
    return choice == Choice::None ||
           (choice == Choice::Left ? m_changeable.right : m_changeable.left);
}

bool DifferenceChoices::Choose(const std::vector<std::size_t>& values, Choice choice)
{
    Choices chosen = m_choices;
    for (const std::size_t value : values)
        if (CanChoose(value, choice)) chosen[value] = choice;
    if (chosen == m_choices) return false;
    m_undo.push_back(std::exchange(m_choices, std::move(chosen)));
    m_redo.clear();
    return true;
}

void DifferenceChoices::Undo()
{
    if (m_undo.empty()) return;
    m_redo.push_back(std::exchange(m_choices, std::move(m_undo.back())));
    m_undo.pop_back();
}

void DifferenceChoices::Redo()
{
    if (m_redo.empty()) return;
    m_undo.push_back(std::exchange(m_choices, std::move(m_redo.back())));
    m_redo.pop_back();
}

// Of three the sides stay what they were: it is a third one that is made.
const std::optional<CString>& DifferenceChoices::Left(std::size_t value) const
{
    const Change& one = m_values[value];
    return !m_isOfThree && Of(value) == Choice::Right ? one.theirs : one.mine;
}

const std::optional<CString>& DifferenceChoices::Right(std::size_t value) const
{
    const Change& one = m_values[value];
    return !m_isOfThree && Of(value) == Choice::Left ? one.mine : one.theirs;
}

bool DifferenceChoices::IsAnyChosen(Choice choice) const
{
    return std::find(m_choices.begin(), m_choices.end(), choice) != m_choices.end();
}

bool DifferenceChoices::IsLeftChanged() const
{
    return !m_isOfThree && IsAnyChosen(Choice::Right);
}

bool DifferenceChoices::IsRightChanged() const
{
    return !m_isOfThree && IsAnyChosen(Choice::Left);
}

int DifferenceChoices::Unsettled() const
{
    int count = 0;
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (m_values[i].by == ChangedBy::Conflict && Of(i) == Choice::None) ++count;
    return m_isOfThree ? count : 0;
}

bool DifferenceChoices::IsAllOf(Choice side) const
{
    const ChangedBy alone = side == Choice::Left ? ChangedBy::Me : ChangedBy::Them;
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const ChangedBy by = m_values[i].by;
        if ((by == alone || by == ChangedBy::Conflict) && Of(i) != side) return false;
    }
    return true;
}

// The left one with what is chosen of the right.
CDesignSpecification DifferenceChoices::MadeWith(Choice none) const
{
    std::vector<Side> sides;
    // A name that is not listed differs nevertheless.
    if (!m_isOfThree && !m_left.HasID(m_right.ID()) && m_left.Name() != m_right.Name())
        sides.push_back(Side::Mine);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (!IsDifferent(i)) continue;
        const Choice choice = Of(i) == Choice::None ? none : Of(i);
        sides.push_back(choice == Choice::Right ? Side::Theirs : Side::Mine);
    }
    return Merged(m_base, m_left, m_right, sides);
}

CDesignSpecification DifferenceChoices::MadeLeft() const
{
    CDesignSpecification made = m_left;
    made.CopyCriteria(MadeWith(Choice::Left));
    return made;
}

CDesignSpecification DifferenceChoices::MadeRight() const
{
    CDesignSpecification made = m_right;
    made.CopyCriteria(MadeWith(Choice::Right));
    return made;
}

CDesignSpecification DifferenceChoices::Made() const
{
    return MadeWith(Choice::Left);
}

} // namespace designspec
