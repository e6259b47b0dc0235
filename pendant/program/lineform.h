#pragma once

#include "pendant/program/hostform.h"

class QLineEdit;

namespace welmo::pendant {

/// A line as plain text, for words without a form.
class LineForm : public HostForm
{
    Q_OBJECT
public:
    explicit LineForm(QWidget *parent);

    void FillWith(const QString &line) override;
    QString ToString() override;

private:
    QLineEdit *m_text;
};

} // namespace welmo::pendant
