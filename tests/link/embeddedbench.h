#pragma once

#include "callbench.h"
#include "link/embedded/embeddedlink.h"

/// A controller in this process.
struct Bench : CallBench<welmo::links::EmbeddedLink>
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();

    explicit Bench(const QString &folder = {})
    {
        link = std::make_unique<welmo::links::EmbeddedLink>(
            welmo::links::EmbeddedLink::Options{folder, [hands = hands] { return hands->read(); }});
    }

    welmo::controller::Faults *faults() const { return link->faults(); }
    const welmo::controller::Journal &journal() const { return link->journal(); }
};
