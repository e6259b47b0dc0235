#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class QWidget;

namespace welmo {

/// Leaves a part of a form that is hidden at first without its style until it is shown. Qt styles
/// hidden widgets with their form, which takes a good part of the time that opening a page takes.
class LatePolish : public QObject
{
public:
    /// @p part is complete and not styled yet; it owns this.
    explicit LatePolish(QWidget *part);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void polish();

    QWidget *const m_part;
    QVector<QPointer<QWidget>> m_widgets; // the part and what it contains
    QVector<QPointer<QWidget>> m_late; // of these, what was to be styled, the outer ones first
};

} // namespace welmo
