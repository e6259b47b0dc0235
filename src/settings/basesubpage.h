#pragma once

#include <QPointer>
#include <QWidget>

#include <tessa/basepage.h>

/// Common base of the arc-weld page's sub-pages: a page with a plain widget to build its form on.
class BaseSubPage : public tessa::BasePage
{
    Q_OBJECT
public:
    /// The widget is a child of @p parent; the page itself belongs to @p owner.
    BaseSubPage(QWidget *parent, const QString &name, const QString &title, QObject *owner);
    ~BaseSubPage() override;

    QWidget *wgt() const { return m_wgt; }
    /// Called each time the sub-page is shown, and when the controller has connected again.
    virtual void initPage() { }
    /// Whether one of its forms has unsaved changes.
    bool isEdited() const;
    bool event(QEvent *event) override;

signals:
    void editedChanged();

private:
    QPointer<QWidget> m_wgt;
};
