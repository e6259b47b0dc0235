#pragma once

#include <QString>

#include <pando/bmodule.h>

/// The module that the host loads: it registers its navigation entry and puts its views into the
/// host's window. It owns nothing; the host owns what it makes.
class Welmo : public pando::BModule
{
    Q_OBJECT
public:
    explicit Welmo(QObject *parent);

    QString name() const override;
    void init() override;
    void setup() override;

private:
    void writeStartLine() const;
};

namespace welmo {

/// The module's version text; its last part grows with the class versions.
QString version();
/// The same text under its second name.
QString api();

} // namespace welmo
