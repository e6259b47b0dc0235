#pragma once

#include <QPointer>
#include <QWidget>

#include <tessa/basepage.h>

class QButtonGroup;
class QHBoxLayout;
class QStackedWidget;

namespace welmo::book {

class Bookkeeper;

/// The page of the weld book: a row of buttons, and the page that they choose.
class BookPage : public tessa::BasePage
{
    Q_OBJECT
public:
    BookPage(Bookkeeper *keeper, QWidget *parent, QObject *owner);
    ~BookPage() override;

    void render() override;
    QWidget *wgt() const { return m_wgt; }

private:
    void addTab(QHBoxLayout *bar, const QString &title, const char *name, QWidget *page);

    QPointer<QWidget> m_wgt;
    QButtonGroup *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace welmo::book
