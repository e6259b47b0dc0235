#pragma once

#include "callfixture.h"
#include "link/embedded/embeddedlink.h"

/// A controller in this process.
struct Fixture : CallFixture<welmo::links::EmbeddedLink>
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();

    explicit Fixture(const QString &folder = {})
    {
        link = std::make_unique<welmo::links::EmbeddedLink>(
            welmo::links::EmbeddedLink::Options{folder, [hands = hands] { return hands->read(); }});
    }

    void becomeOperator() const { link->setRole(welmo::links::Role::Operator); }
    welmo::controller::Faults *faults() const { return link->faults(); }
    const welmo::controller::Journal &journal() const { return link->journal(); }
};
