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
    /// Offers these points; the chosen one stays chosen, and is offered even if it is not among
    /// them.
    void setPoints(const QStringList &names);
    QString pointName() const;
    /// Selects a point. False if the project lacks it; it is selected all the same, so that the
    /// line goes on naming it.
    bool choose(const QString &name);

    tl::PointExpression expression() const;
    /// Shows the kind and the numbers; choose() selects the point.
    void setKindAndNumbers(const tl::PointExpression &expression);
    void setKind(Kind kind);
    void resetNumbers();

signals:
    /// Another point was chosen.
    void pointChanged();
    /// The result of expression() has changed.
    void edited();
    void newPointWanted();

private:
    Kind kind() const;
    void onKindChanged();

    std::unique_ptr<Ui::PointEdit> ui;
};

} // namespace welmo
