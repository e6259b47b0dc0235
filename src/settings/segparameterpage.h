#pragma once

#include "settings/basesubpage.h"

class SegParameterWidget;

/// The segment editor as a sub-page. Complete, but not among the arc-weld page's entries: segment
/// welding is not released to operators yet.
class SegParameterPage : public BaseSubPage
{
    Q_OBJECT
public:
    SegParameterPage(QWidget *parent, QObject *owner);

    /// Rebuilds the lists, since speeds may have been added, and shows the file.
    void initPage() override;

private:
    SegParameterWidget *wgtSeg;
};
