#pragma once

#include <QString>

#include <pando/bmodule.h>

/// The module that the host loads: it registers its navigation entry and puts its views into the
/// host's frame. It owns nothing; what it makes is handed to the host.
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

/// The module's version text; its last part counts with the class versions.
QString version();
/// The same text under its second name.
QString api();

} // namespace welmo
