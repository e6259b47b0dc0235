#include "pendant/pages/homepage.h"

#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>

#include "pendant/pages/problemspanel.h"
#include "pendant/state/linkbadge.h"
#include "pendant/state/navigation.h"
#include "pendant/theme/appearance.h"

namespace welmo::pendant {

namespace {

QComboBox *makeChoice(QWidget *parent, const QString &name, const QStringList &texts,
                      const QStringList &values, const QString &current)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setView(new QListView(combo));
    for (int i = 0; i < values.size(); ++i)
        combo->addItem(texts.at(i), values.at(i));
    if (!values.contains(current))
        combo->addItem(QFileInfo(current).fileName(), current);
    combo->setCurrentIndex(combo->findData(current));
    return combo;
}

} // namespace

HomePage::HomePage(const Facts &facts, tessa::MessageLog *log, LinkControl *link, QWidget *parent)
    : HostPage(tr("Home"), parent)
{
    auto *columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addWidget(makeSteps(facts), 3);
    auto *right = new QVBoxLayout;
    right->setSpacing(16);
    right->addWidget(makeLink(facts, link));
    right->addWidget(makeDisplay(facts));
    right->addStretch(1);
    columns->addLayout(right, 2);
    auto *introduction = makeIntroduction(facts.hasExample);
    auto *problems = new ProblemsPanel(log, this);
    body()->addWidget(introduction);
    body()->addWidget(problems);
    // There is room for one of the two, and problems matter more than the introduction.
    const auto makeRoom = [introduction](bool any) { introduction->setVisible(!any); };
    connect(problems, &ProblemsPanel::anyChanged, this, makeRoom);
    makeRoom(problems->any());
    addColumns(columns);
    body()->addStretch(1);
}

QWidget *HomePage::makeIntroduction(bool hasExample)
{
    auto *card = new Card(QString(), this);
    auto *name = card->addText(tr("Arc welding on a robot pendant"));
    name->setObjectName(QStringLiteral("lblIntroduction"));
    card->addText(tr("The pendant holds the welding package; the controller, the robot and the "
                     "welder behind it are simulated. Everything here can be tried: nothing moves "
                     "and no wire burns."));
    auto *weld = new QPushButton(tr("Weld the example"), card);
    weld->setVisible(hasExample);
    weld->setObjectName(QStringLiteral("btnWeldExample"));
    connect(weld, &QPushButton::clicked, this, &HomePage::exampleWanted);
    card->body()->addWidget(weld, 0, Qt::AlignLeft);
    return card;
}

QWidget *HomePage::makeSteps(const Facts &facts)
{
    auto *card = new Card(tr("First steps"), this);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(18);
    grid->setColumnStretch(1, 1);
    const QStringList steps{
        tr("Open Arc Weld in the navigation, then Process Setting."),
        tr("Choose a file, such as arcondata3. One that is not there yet starts with the "
           "defaults."),
        tr("Change a value and save. It is still there when the pendant is started again."),
        tr("Switch the device on under Device Setting, then hold a key at the right edge, or F1 to "
           "F7: wire feeds until it is let go."),
        tr("Take the link down at the top right, or name a fault on the Controller page, and see "
           "what the pages tell."),
    };
    for (int i = 0; i < steps.size(); ++i) {
        auto *number = new QLabel(QString::number(i + 1), card);
        number->setObjectName(QStringLiteral("lblStep"));
        number->setAlignment(Qt::AlignCenter);
        auto *text = new QLabel(steps.at(i), card);
        text->setWordWrap(true);
        grid->addWidget(number, i, 0, Qt::AlignTop);
        grid->addWidget(text, i, 1);
    }
    card->body()->addLayout(grid);
    card->body()->addStretch(1);
    if (!facts.firstPage.isEmpty()) {
        auto *open = new QPushButton(tr("Open %1").arg(facts.firstTitle), card);
        open->setObjectName(QStringLiteral("btnOpenFirst"));
        connect(open, &QPushButton::clicked, this,
                [this, key = facts.firstPage] { emit pageWanted(key); });
        card->body()->addWidget(open, 0, Qt::AlignLeft);
    }
    return card;
}

QWidget *HomePage::makeLink(const Facts &facts, LinkControl *link)
{
    auto *card = new Card(tr("Controller"), this);
    card->body()->addWidget(new LinkBadge(link, card));
    const auto addPlace = [card](const QString &caption, const QString &place, const char *name) {
        card->addText(caption)->setObjectName(QStringLiteral("lblCaption"));
        auto *text = card->addText(place);
        text->setObjectName(QLatin1String(name));
        text->setTextFormat(Qt::PlainText);
    };
    const bool isRemote = !facts.controller.isEmpty();
    if (isRemote)
        addPlace(tr("It keeps the parameter files, at"), facts.controller, "lblControllerPlace");
    addPlace(isRemote ? tr("This pendant keeps its programs in") : tr("Files are kept in"),
             facts.dataFolder, "lblDataFolder");
    auto *version = card->addText(tr("Version %1, no licence chosen").arg(facts.version));
    version->setObjectName(QStringLiteral("lblVersion"));
    auto *why = new QPushButton(tr("Why is there no arc?"), card);
    why->setObjectName(QStringLiteral("btnWhyNoArc"));
    connect(why, &QPushButton::clicked, this, [this] { emit pageWanted(arcCheckKey); });
    card->body()->addWidget(why, 0, Qt::AlignLeft);
    return card;
}

QWidget *HomePage::makeDisplay(const Facts &facts)
{
    auto *card = new Card(tr("Display"), this);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(1, 1);
    m_language = makeChoice(card, QStringLiteral("cbxLanguage"),
                            {QStringLiteral("English"), QString::fromUtf8("中文")},
                            knownLanguages(), facts.language);
    m_theme = makeChoice(card, QStringLiteral("cbxTheme"), {tr("Light"), tr("Dark")}, knownThemes(),
                         facts.theme);
    grid->addWidget(new QLabel(tr("Language"), card), 0, 0);
    grid->addWidget(m_language, 0, 1);
    grid->addWidget(new QLabel(tr("Theme"), card), 1, 0);
    grid->addWidget(m_theme, 1, 1);
    card->body()->addLayout(grid);
    auto *note = card->addText(tr("The pages start anew: save first."));
    note->setObjectName(QStringLiteral("lblCaption"));
    for (QComboBox *combo : {m_language, m_theme})
        connect(combo, qOverload<int>(&QComboBox::activated), this, &HomePage::emitDisplay);
    return card;
}

void HomePage::emitDisplay()
{
    emit displayChosen(m_language->currentData().toString(), m_theme->currentData().toString());
}

} // namespace welmo::pendant
