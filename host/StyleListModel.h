// The styles of one library as rows: a picture of the library, taken when Show is called.
#pragma once

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>

#include "platform/vmrd/VMRDEnv/Styles.h"

class CStyleEditor;

class StyleListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // Those of the host; behind them come the editor's.
    enum Column { NameColumn, DefaultColumn, IdColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    // The editor's styles, with the columns that it brings; no rows for null.
    void Show(const CStyleEditor* editor);
    // How many columns that would be.
    static int CountColumns(const CStyleEditor* editor);
    GUID IdAt(int row) const { return m_rows[static_cast<size_t>(row)].id; }
    // About so many characters are in an editor's column.
    int CharactersOf(int column) const { return OwnOf(column).characters; }

    // Whether the text is in the name or in one of the editor's columns, in any case.
    bool Tells(int row, const QString& text) const;
    // Both, for the editor's search.
    CString Told(int row) const;
    // What the style is of, by the columns that sort styles into groups.
    QStringList GroupsOf(int row) const;
    // Where something that was looked for is in the style, for the tooltip of the name.
    void SetFound(int row, const QString& where);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString name;
        GUID id;
        bool isDefault;
        QStringList own; // of the editor's columns
        QString found = {};
    };
    struct OwnColumn {
        QString caption;
        int characters;
        bool isGroup;
    };
    QString Text(const Row& row, int column) const;
    QString ToolTip(const Row& row, int column) const;
    const OwnColumn& OwnOf(int column) const
    {
        return m_own[static_cast<size_t>(column - ColumnCount)];
    }

    std::vector<OwnColumn> m_own;
    std::vector<Row> m_rows;
};

// The rows that a filter has accepted, sorted as a reader expects: 规范2 before 规范10; what is the
// same in a column, by name.
class StyleSortFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit StyleSortFilter(QObject* parent = nullptr);

    // One for each row of the list.
    void SetAccepted(std::vector<bool> accepted);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QCollator m_collator;
    std::vector<bool> m_accepted; // what it is too short for is
};
