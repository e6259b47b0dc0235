#pragma once

#include "pendant/pages/hostpage.h"

class QComboBox;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

class LinkControl;

/// The first page: an introduction, first steps, the link's state, problems, and the choice of
/// language and theme.
class HomePage : public HostPage
{
    Q_OBJECT
public:
    struct Facts
    {
        QString language;
        QString theme; ///< name or path of the theme in use
        QString dataFolder;
        QString controller; ///< where a controller on the network is; empty: in this process
        QString firstPage; ///< key of the page that "open" leads to; empty for none
        QString firstTitle;
        QString version;
        /// The controller is simulated in this process, so that nothing can burn.
        bool hasExample = false;
    };

    HomePage(const Facts &facts, tessa::MessageLog *log, LinkControl *link,
             QWidget *parent = nullptr);

signals:
    void pageWanted(const QString &key);
    /// The operator wants the example program welded.
    void exampleWanted();
    /// The operator chose another language or theme.
    void displayChosen(const QString &language, const QString &theme);

private:
    QWidget *makeIntroduction(bool hasExample);
    QWidget *makeSteps(const Facts &facts);
    QWidget *makeLink(const Facts &facts, LinkControl *link);
    QWidget *makeDisplay(const Facts &facts);
    void emitDisplay();

    QComboBox *m_language = nullptr;
    QComboBox *m_theme = nullptr;
};

} // namespace welmo::pendant
