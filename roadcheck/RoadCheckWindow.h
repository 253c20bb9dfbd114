// The window in which a road is held against a specification.
#pragma once

#include <array>

#include <QWidget>

#include "roadcheck/BackgroundJob.h"
#include "roadcheck/CheckResult.h"
#include "roadcheck/CheckSettings.h"
#include "roadcheck/FileWatch.h"
#include "roadcheck/RoadCheckForm.h"
#include "roadcheck/UncheckedModel.h"

class QShortcut;

namespace roadcheck {

// Reading and checking go on in the background: one leads to the other, and whatever the user
// changes, or the file, or the specification, begins it anew.
class RoadCheckWindow : public QWidget {
    Q_OBJECT

public:
    RoadCheckWindow();
    ~RoadCheckWindow() override;

    // Reads the file and checks the first of its roads.
    void Open(const QString& file);

private:
    void ConnectInputs();
    void ConnectResults();
    void ConnectJobs();
    void MakeKeys();

    void Browse();
    void Read();
    void TakeFile(const std::shared_ptr<RoadFile>& read, const std::wstring& failure);
    void FillAlignments();
    void ChooseAlignment();
    void Check();
    void Show(const std::shared_ptr<const CheckResult>& result, const std::wstring& failure);
    void CheckAgain();
    void Cancel();
    std::array<BackgroundJob*, 3> Jobs() { return {&m_reading, &m_checking, &m_export}; }
    bool IsRunning();
    void ShowRunning();

    void UpdateMessage();
    QString ProblemText() const;
    void UpdateCounts();
    void ShowLimit(int finding);
    void ExportReport();
    void ExportDiagrams();
    QString AskFileToSave(const QString& title, const QStringList& filters) const;
    const Alignment* Road() const;
    static CheckSettings Settings();

    QString m_path; // of the file, absolute
    std::shared_ptr<const RoadFile> m_read;
    std::shared_ptr<const CheckResult> m_result; // what is shown
    std::wstring m_failure;                      // of the last work
    FileWatch m_watch;
    BackgroundJob m_reading, m_checking, m_export;
    UncheckedModel m_uncheckedModel;

    const RoadCheckForm m_form{*this, m_uncheckedModel};
    QShortcut* m_escape = nullptr;
};

} // namespace roadcheck
