#pragma once

#include "settings/basesubpage.h"

class SegParameterWidget;

/// The segment editor as a sub-page. Complete, but the arc-weld page does not offer it: segment
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
