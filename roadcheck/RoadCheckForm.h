// The controls of the check window and where they stand.
#pragma once

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;
class QWidget;

namespace roadcheck {

class DiagramView;
class FindingsPanel;
class OptionsPanel;
class SpecificationChoice;
class SpeedTableEditor;
class UncheckedModel;

struct RoadCheckForm {
    enum Tab { FindingsTab, UncheckedTab, ProblemsTab };

    // They are the window's.
    RoadCheckForm(QWidget& window, UncheckedModel& unchecked);

    QLineEdit* file = nullptr;
    QComboBox* alignment = nullptr;
    SpecificationChoice* specification = nullptr;
    SpeedTableEditor* speeds = nullptr;
    OptionsPanel* options = nullptr;
    QPushButton* browse = nullptr;
    QPushButton* checkAgain = nullptr;
    QLabel* message = nullptr;
    QTabWidget* tabs = nullptr;
    FindingsPanel* findings = nullptr;
    DiagramView* diagrams = nullptr;
    QPlainTextEdit* problems = nullptr;
    QLabel* status = nullptr;
    QProgressBar* progress = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* exportReport = nullptr;
    QPushButton* exportDiagrams = nullptr;

private:
    void MakeInputs(QGridLayout* layout);
    void MakeSpeedsAndOptions(QGridLayout* layout);
    QWidget* MakeResults(UncheckedModel& unchecked);
    QWidget* MakeTabs(UncheckedModel& unchecked);
    QWidget* MakeBottom();
    void SetTabOrders();
};

} // namespace roadcheck
