#pragma once

#include <QList>

#include "instructions/forms/instructionform.h"

class QComboBox;

namespace welmo {

/// Insert form of an instruction that names parameter files: one combo box for each, in the order
/// of the line's arguments.
class FileInsertWidget : public InsertForm
{
    Q_OBJECT
public:
    FileInsertWidget(tl::Word word, QWidget *parent);
    QString ToString() override;

protected:
    /// Adds the combo box of the next argument, filled with the 40 names of its set.
    void addFile(const QString &label, const QString &comboName);
    QComboBox *combo(int argument) const { return m_combos.at(argument); }

private:
    QList<QComboBox *> m_combos;
};

} // namespace welmo

class ArconInsertWidget : public welmo::FileInsertWidget
{
    Q_OBJECT
public:
    explicit ArconInsertWidget(QWidget *parent);
    QString ToString() override;

public slots:
    void onArconDataSelectChanged(int index);
    void onArcDataSelectChanged(int index);

private:
    QString m_arconData;
    QString m_arcData;
};

class ArcoffInsertWidget : public welmo::FileInsertWidget
{
    Q_OBJECT
public:
    explicit ArcoffInsertWidget(QWidget *parent);
};

class WeaveOnInsertWidget : public welmo::FileInsertWidget
{
    Q_OBJECT
public:
    explicit WeaveOnInsertWidget(QWidget *parent);
};

class SegOnInsertWidget : public welmo::FileInsertWidget
{
    Q_OBJECT
public:
    explicit SegOnInsertWidget(QWidget *parent);
};
