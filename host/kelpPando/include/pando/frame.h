#pragma once

#include <QHash>
#include <QPointer>
#include <QStackedWidget>
#include <QWidget>

class QHBoxLayout;

namespace pando {

class BModule;

/// The frame's centre area: one page at a time, by page key. It owns the pages' widgets.
class CenterWidget : public QStackedWidget
{
    Q_OBJECT
public:
    explicit CenterWidget(QWidget *parent = nullptr);

    /// @p owner is the module of the page; adding a key again replaces its page.
    void addPage(QObject *owner, const QString &key, QWidget *page);
    /// Shows the page; false if there is none with that key.
    bool switchTo(const QString &key);
    QString currentKey() const;

signals:
    void pageShown(const QString &key);

private:
    QHash<QString, QPointer<QWidget>> m_pages;
};

/// The frame's side bar: hidden at first, one page at a time.
class ExpandSideBar : public QWidget
{
    Q_OBJECT
public:
    explicit ExpandSideBar(QWidget *parent = nullptr);

    void addPage(QObject *owner, const QString &key, QWidget *page);
    bool switchTo(const QString &key);
    QString currentKey() const;
    /// The width of the pages; a scroll bar comes on top of it.
    void setPageWidth(int width);
    /// Puts @p bar above the pages; the side bar owns it.
    void addBar(QWidget *bar);

signals:
    /// The side bar was shown or hidden, even while the window itself is hidden.
    void opened(bool open);

protected:
    bool event(QEvent *event) override;

private:
    CenterWidget *m_pages;
    int m_pageWidth = 0;
    int m_barWidth = 0;
};

/// The frame's status bar: keyed items in a row.
class StatusBar : public QWidget
{
    Q_OBJECT
public:
    explicit StatusBar(QWidget *parent = nullptr);

    /// Appends an item; the bar owns its widget. Adding a key again replaces its item.
    void addItem(QObject *owner, const QString &key, QWidget *item, int stretch = 0);
    /// Inserts an item before the item @p before, or at the end if there is no such item.
    void addBeforeItem(QObject *owner, const QString &key, const QString &before, QWidget *item);
    QWidget *item(const QString &key) const { return m_items.value(key); }

private:
    void insert(int position, const QString &key, QWidget *item, int stretch);

    QHBoxLayout *m_layout;
    QHash<QString, QPointer<QWidget>> m_items;
};

/// The places of the running host's frame; a place that the host does not have is null.
struct Frame
{
    QPointer<CenterWidget> center;
    QPointer<ExpandSideBar> rightSide;
    QPointer<StatusBar> status;
};

/// The frame in use; a host fills it before modules are set up.
Frame &frame();

} // namespace pando

/// The host's centre area for @p module.
pando::CenterWidget *instantiatedCenterWidget(pando::BModule *module);
/// The host's right side bar for @p module; null if the host has none.
pando::ExpandSideBar *instantiatedRightExpandSideWidget(pando::BModule *module);
/// The host's status bar for @p module.
pando::StatusBar *instantiatedStatusBar(pando::BModule *module);
