// A choice of one specification: of the library, the built-in limits, what stands in a file or in
// another project, or what one was before.
#pragma once

#include <functional>
#include <memory>

#include <QWidget>

#include "library/SpecificationFolder.h"

class QComboBox;
class QMenu;
class QPushButton;

namespace designspec {

struct SpecificationVersion;

class SourceChoice : public QWidget {
    Q_OBJECT

public:
    // `caption` stands before the list, with the key that goes to it. The ids of the controls are
    // `id` for the list and the one behind for the button.
    SourceChoice(const QString& caption, int id, QWidget* parent = nullptr);
    ~SourceChoice() override;

    // Lists the specifications of the library by name, save that one, and the built-in limits.
    void Fill(const SpecificationFolder& library, const GUID* without = nullptr);
    // False when it is not listed; then nothing else is chosen.
    bool Select(const GUID& id);
    void SelectBuiltIn();
    // Adds what a file, a project's folder or its folder 规范 holds, and chooses the one of the
    // identity, or else of the name, of `like`, or the first. False, with a message, when nothing
    // could be read.
    bool AddFrom(const CString& path, const CDesignSpecification* like = nullptr);
    // By which AddFrom goes when the user chooses a file: what stands on the other side.
    void SetLike(std::function<const CDesignSpecification*()> like) { m_like = std::move(like); }

    // Null while there is nothing to be chosen.
    const CDesignSpecification* Chosen() const;
    // Whether it is one of the library, and can be changed.
    bool IsOfLibrary() const;
    // In the list, to come back to it without telling.
    int Place() const;
    void SetPlace(int place);
    QString Title() const; // 公路二级, 内置限值, 公路二级 (all.hds)

signals:
    void Changed();

private:
    struct Entry;
    void Add(const QString& title, std::shared_ptr<const Entry> entry);
    const Entry* Current() const;
    void ShowVersions(QMenu& menu);
    void AddVersion(const SpecificationVersion& version, const GUID& id);
    void AskFile();
    void AskProject();
    void AddChosen(const QString& path);

    const SpecificationFolder* m_library = nullptr;
    std::function<const CDesignSpecification*()> m_like;
    std::vector<std::shared_ptr<const Entry>> m_entries; // as they are listed
    QComboBox* m_list;
    QPushButton* m_more;
};

} // namespace designspec
