#pragma once

#include <QFrame>

class QBoxLayout;
class QLabel;
class QVBoxLayout;

namespace welmo::pendant {

/// Base of the pendant's own pages: a title strip over a body.
class HostPage : public QWidget
{
    Q_OBJECT
public:
    explicit HostPage(const QString &title, QWidget *parent = nullptr);

    void setTitle(const QString &title);

protected:
    /// Without its title the body has more height.
    void showTitle(bool shown);
    QVBoxLayout *body() { return m_body; }
    /// Adds columns, which are put below each other if there is not enough room.
    void addColumns(QBoxLayout *columns);
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *m_title;
    QBoxLayout *m_columns = nullptr;
    QVBoxLayout *m_body;
};

/// A panel with a heading inside a page.
class Card : public QFrame
{
    Q_OBJECT
public:
    explicit Card(const QString &heading, QWidget *parent = nullptr);

    QVBoxLayout *body() { return m_body; }
    /// Adds a paragraph with line breaks.
    QLabel *addText(const QString &text);

private:
    QVBoxLayout *m_body;
};

} // namespace welmo::pendant
