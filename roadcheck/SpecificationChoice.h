// The specification that roads are held against: one of the project's library, the default one as
// long as no other is chosen.
#pragma once

#include <optional>

#include <QComboBox>
#include <QTimer>

#include "base/Signal.h"
#include "model/DesignSpecification.h"

namespace roadcheck {

class SpecificationChoice : public QComboBox {
    Q_OBJECT

public:
    explicit SpecificationChoice(QWidget* parent = nullptr);

    // A copy, as it was when the last change was told; nothing when the library is empty.
    const std::optional<CDesignSpecification>& Specification() const { return m_shown; }

    // The GUID of the one that was chosen; empty: the default one, whichever that is.
    QString Chosen() const { return m_chosen; }
    void Choose(const QString& id);

    // Reads the library's files where no other module does, and takes what there is.
    void Reload();

signals:
    // Another one is meant, or the one that is meant has changed.
    void Changed();

private:
    void Refresh();

    QString m_chosen;
    std::optional<CDesignSpecification> m_shown;
    QTimer m_soon; // the library tells of one change several times, and in the midst of it
    designspec::Connection m_changed, m_refurbished;
};

} // namespace roadcheck
