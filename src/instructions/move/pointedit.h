#pragma once

#include <QWidget>
#include <memory>

#include "tl/pointexpression.h"

class QComboBox;

namespace welmo {

namespace Ui {
class PointEdit;
}

/// One point argument of a move: which project point, and whether it is used as it is, with an
/// offset or relative to the tool.
class PointEdit : public QWidget
{
    Q_OBJECT
public:
    using Kind = tl::PointExpression::Kind;

    explicit PointEdit(QWidget *parent = nullptr);
    ~PointEdit() override;

    QComboBox *combo() const;
    /// Offers these points; what is chosen stays chosen, and is offered even if it is not there.
    void setPoints(const QStringList &names);
    QString pointName() const;
    /// Chooses a point. One that the project lacks is chosen all the same, so that the line that
    /// names it keeps it; false then.
    bool choose(const QString &name);

    tl::PointExpression expression() const;
    /// Shows the kind and the numbers; the point is for choose().
    void setKindAndNumbers(const tl::PointExpression &expression);
    void setKind(Kind kind);
    void resetNumbers();

signals:
    /// Another point was chosen.
    void pointChanged();
    /// What expression() gives is another one.
    void edited();
    void newPointWanted();

private:
    Kind kind() const;
    void onKindChanged();

    std::unique_ptr<Ui::PointEdit> ui;
};

} // namespace welmo
