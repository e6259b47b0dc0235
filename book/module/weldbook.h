#pragma once

#include <memory>

#include <pando/bmodule.h>

namespace welmo::book {
class Bookkeeper;
}

/// The module that the host loads: a navigation entry, the page, and the bookkeeper.
class WeldBook : public pando::BModule
{
    Q_OBJECT
public:
    explicit WeldBook(QObject *parent);
    ~WeldBook() override;

    QString name() const override;
    void init() override;
    void setup() override;
    void render() override;
    /// Closes the book; an open seam is stored as interrupted.
    void detach() override;

private:
    std::unique_ptr<welmo::book::Bookkeeper> m_keeper;
};
