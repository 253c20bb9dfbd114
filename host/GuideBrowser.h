// Shows the user's guide, which is one file of Markdown with its pictures beside it.
#pragma once

#include <vector>

#include <QTextBlock>
#include <QTextBrowser>

class GuideBrowser : public QTextBrowser {
    Q_OBJECT

public:
    struct Heading {
        QString text;
        int level = 1; // that of the guide's title is 1
        int position = 0;
    };

    explicit GuideBrowser(QWidget* parent = nullptr);

    // False when the file cannot be read; then nothing is shown.
    bool Load(const QString& file);
    const std::vector<Heading>& Headings() const { return m_headings; }
    // False when there is no such heading.
    bool GoTo(const QString& heading);
    // The heading that what is at the top of the view stands below; -1 above the first one.
    int Shown() const;

    // Marks each place of the text and goes to the first behind the present one, or before it.
    // How many there are.
    int Find(const QString& text, bool backwards);
    // The number of the place that was gone to, from 1; 0 when it was gone to none.
    int Found() const { return m_found; }

signals:
    void Moved();

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    void ListHeadings();
    void Follow(const QUrl& link);
    void GoTo(int position);

    QString m_folder;
    std::vector<Heading> m_headings;
    QString m_searched;
    int m_found = 0;
};
