#pragma once

#include "pendant/pages/hostpage.h"

class QComboBox;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

class LinkControl;

/// The first page: what this is, how to begin, how the link is, what went wrong, and the choice of
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
        QString firstPage; ///< page key that "open" leads to, empty when there is none
        QString firstTitle;
        QString version;
        bool hasExample = false; ///< the controller is simulated in here, so nothing can burn
    };

    HomePage(const Facts &facts, tessa::MessageLog *log, LinkControl *link,
             QWidget *parent = nullptr);

signals:
    void pageWanted(const QString &key);
    /// The example program is to be welded.
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
