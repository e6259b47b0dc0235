#pragma once

#include <QFrame>

class QLabel;

namespace welmo::pendant {

class LinkControl;

/// The link's state as picture, word and colour.
class LinkBadge : public QFrame
{
    Q_OBJECT
public:
    /// Wide enough for every word, so that nothing beside it moves.
    static constexpr int fixedWidth = 152;

    explicit LinkBadge(LinkControl *link, QWidget *parent = nullptr);

private:
    void refresh();

    LinkControl *m_link;
    QLabel *m_picture;
    QLabel *m_text;
};

} // namespace welmo::pendant
