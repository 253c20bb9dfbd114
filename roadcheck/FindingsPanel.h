// The findings in a table, with what filters them above it.
#pragma once

#include <array>
#include <optional>

#include <QWidget>

#include "roadcheck/FindingsFilter.h"
#include "roadcheck/FindingsModel.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace roadcheck {

class FindingsPanel : public QWidget {
    Q_OBJECT

public:
    explicit FindingsPanel(QWidget* parent = nullptr);

    // Null: none. The finding that was selected is selected again when it is among them, then or
    // later: the same rule at the same element.
    void Show(const std::shared_ptr<const CheckedRoad>& road);
    const std::vector<Finding>& Findings() const { return m_model.Findings(); }

    // Index into the findings; -1: none. One that the filter hides is not selected.
    int Selected() const;
    void Select(int finding);
    std::vector<bool> Shown() const { return m_filter.Shown(); }

signals:
    void SelectionChanged(int finding);
    void ShownChanged();
    void Activated(int finding);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What a finding is known by when the road is checked anew.
    struct Identity {
        const Rule* rule;
        std::wstring kind;
        int index;
        bool operator==(const Identity&) const = default;
    };
    static Identity IdentityOf(const Finding& finding);

    void MakeTable();
    QWidget* MakeFilterRow();
    void FillRules();
    void CountSeverities();
    void TellSelection();
    void ShowDetail(int finding);
    void Copy() const;

    FindingsModel m_model;
    FindingsFilter m_filter;
    QTableView* m_table;
    std::array<QCheckBox*, 3> m_severities{};
    QComboBox* m_rules;
    QLineEdit* m_text;
    QLabel* m_detail;                   // of the selected one
    std::optional<Identity> m_selected; // by the user
    bool m_isShowing = false;           // what is selected meanwhile is not the user's choice
};

} // namespace roadcheck
