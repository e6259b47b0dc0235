#pragma once

#include <QPixmap>
#include <QSortFilterProxyModel>

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

/// The level of a message in the operator's language.
QString levelText(const QString &level);
/// The level's picture in the theme.
QPixmap levelPicture(const QString &level);
/// A sender's name for the operator; one that is not known here as it is.
QString senderText(const QString &sender);

/// The message log as the operator reads it: levels as pictures and words, one level or all.
class MessageModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit MessageModel(tessa::MessageLog *log, QObject *parent = nullptr);

    /// Shows only messages of @p level; empty shows all.
    void setLevel(const QString &level);
    /// Levels as pictures only.
    void setBrief(bool brief);
    QVariant data(const QModelIndex &index, int role) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QString m_level;
    bool m_isBrief = false;
};

} // namespace welmo::pendant
