// The menu of projects: make one, open one, open one of the last again.
#pragma once

#include <QMenu>

class ProjectMenu : public QMenu {
    Q_OBJECT

public:
    explicit ProjectMenu(QWidget* window);

    void RenewIcons();

public slots:
    // Ask for a folder; nothing happens when none is chosen.
    void AskNew();
    void AskOpen();

signals:
    void Open(const QString& folder);
    void New(const QString& folder);

private:
    void FillRecent();
    QString StartFolder() const;

    QAction* m_new;
    QAction* m_open;
    QMenu* m_recent;
};
