#pragma once

#include "instructions/forms/instructionform.h"

class QDoubleSpinBox;

namespace welmo {

/// Insert form of an instruction with a time in seconds.
class TimedInsertWidget : public InsertForm
{
    Q_OBJECT
public:
    TimedInsertWidget(tl::Word word, QWidget *parent);
    QString ToString() override;

private:
    QDoubleSpinBox *sbxTime;
};

/// Property form of an instruction with a time in seconds.
class TimedPropertyWidget : public PropertyForm
{
    Q_OBJECT
public:
    TimedPropertyWidget(tl::Word word, QWidget *parent);
    void FillWith(const QString &line) override;
    QString ToString() override;

private:
    QDoubleSpinBox *sbxTime;
};

} // namespace welmo

class FeedOnWireInsertWidget : public welmo::TimedInsertWidget
{
    Q_OBJECT
public:
    explicit FeedOnWireInsertWidget(QWidget *parent)
        : TimedInsertWidget(welmo::tl::Word::FeedOnWire, parent)
    { }
};

class FeedOnWirePropertyWidget : public welmo::TimedPropertyWidget
{
    Q_OBJECT
public:
    explicit FeedOnWirePropertyWidget(QWidget *parent)
        : TimedPropertyWidget(welmo::tl::Word::FeedOnWire, parent)
    { }
};

class FeedBackWireInsertWidget : public welmo::TimedInsertWidget
{
    Q_OBJECT
public:
    explicit FeedBackWireInsertWidget(QWidget *parent)
        : TimedInsertWidget(welmo::tl::Word::FeedBackWire, parent)
    { }
};

class FeedBackWirePropertyWidget : public welmo::TimedPropertyWidget
{
    Q_OBJECT
public:
    explicit FeedBackWirePropertyWidget(QWidget *parent)
        : TimedPropertyWidget(welmo::tl::Word::FeedBackWire, parent)
    { }
};

class DetectGasInsertWidget : public welmo::TimedInsertWidget
{
    Q_OBJECT
public:
    explicit DetectGasInsertWidget(QWidget *parent)
        : TimedInsertWidget(welmo::tl::Word::DetectGas, parent)
    { }
};

class DetectGasPropertyWidget : public welmo::TimedPropertyWidget
{
    Q_OBJECT
public:
    explicit DetectGasPropertyWidget(QWidget *parent)
        : TimedPropertyWidget(welmo::tl::Word::DetectGas, parent)
    { }
};
