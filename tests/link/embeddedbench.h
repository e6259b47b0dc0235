#pragma once

#include "callbench.h"
#include "link/embeddedlink.h"

/// A controller in this process.
struct Bench : CallBench<links::EmbeddedLink>
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();

    explicit Bench(const QString &folder = {})
    {
        link = std::make_unique<links::EmbeddedLink>(
            links::EmbeddedLink::Options{folder, [hands = hands] { return hands->read(); }});
    }

    controller::Faults *faults() const { return link->faults(); }
    const controller::Journal &journal() const { return link->journal(); }
};
