#include "main_window/ContentView.h"

#include "browsers/BrowserPicker.h"
#include "main_window/Columns.h"
#include "main_window/SelectionPane.h"
#include "platform/StandardOutput.h"
#include "play/EventToolbar.h"
#include "play/Events.h"
#include "play/JourneyBoard.h"
#include "reading/FindBar.h"
#include "reading/OpeningMessage.h"
#include "reading/Patience.h"
#include "reading/ReadingControls.h"
#include "reading/SizeGestures.h"
#include "reading/TextPane.h"
#include "simulation/Simulation.h"
#include "simulation/SimulationTask.h"
#include "tree/Node.h"
#include "tree/Sidebar.h"
#include "view/Alert.h"
#include "view/Announcement.h"
#include "view/Frame.h"
#include "view/Modifiers.h"
#include "view/Notice.h"
#include "view/Stacks.h"

#include <QBoxLayout>
#include <QCoreApplication>

namespace {

constexpr FrameBounds bounds{.minimum = {100, 100}, .ideal = {999, 350}, .maximum = {1199, 650}};

// The text pane has what height the others leave: they take what they ask for.
QWidget *takingItsHeight(QWidget *widget)
{
    widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return widget;
}

} // namespace

ContentView::ContentView(Surroundings &surroundings)
    : ContentView(Seed{}, surroundings)
{
}

ContentView::ContentView(Seed seed, Surroundings &surroundings)
    : m_surroundings(surroundings)
    , uString(Key::StringKeyPX5, surroundings.defaults, seed.uString)
    , sp1(seed.sp1)
    , sp2(seed.sp2 ? *seed.sp2 : surroundings.defaults.integer(Key::IntKeyToggle2))
    , btnStatus(surroundings.defaults.integer(Key::CatPX5))
    , m_textLoading(text, sp1, sp2, surroundings.defaults, surroundings.newOpenPanel)
    , m_pdfExport(surroundings.downloads, surroundings.newPrintOperation)
    , m_browserChoice(browsers, selectedBrowser, surroundings.workspace, surroundings.bundleFolders)
{
}

Frame *ContentView::body()
{
    QWidget *sidebar = Sidebar(sampleData(), selection);
    QWidget *selectionPane = SelectionPane(selection, hostName, userName);
    m_columns = new Columns(sidebar, selectionPane, detailColumn());
    return new Frame(m_columns, bounds);
}

QWidget *ContentView::detailColumn()
{
    const ReadingActions actions{
        .startSimulation = [this] { startSimulation(); },
        .openText = [this] { openText(); },
        .savePdf = [this] { saveUntitled(); },
        .launch = [this] { launchEdge(); },
    };
    QWidget *picker = BrowserPicker(browsers, selectedBrowser, m_browserChoice);
    QWidget *controls = ReadingControls(fontSize, actions, picker);
    m_textPane = new TextPane(text, fontSize);
    stepSizeOver(m_textPane->viewport(), fontSize);
    waitWhileLoading();
    onAppear(
        [this] {
            text.setValue(openingMessage());
            m_textPane->setFocus(); // reading is what the window is for
        },
        m_textPane);
    QWidget *column = VStack(
        {
            controls,
            m_textPane,
            takingItsHeight(playArea()),
        },
        {.padded = true});
    // Above and below there is room already: the group of the picker and the board bring their own.
    const QMargins padding = column->layout()->contentsMargins();
    column->layout()->setContentsMargins(padding.left(), padding.top() / 2, padding.right(),
                                         padding.bottom() * 2 / 3);
    return onAppear([this] { readHost(); }, Scrollable(column));
}

// Made when it is first asked for; its place is below the pane, and the keyboard finds it there.
FindBar &ContentView::findBar()
{
    if (m_findBar)
        return *m_findBar;
    m_findBar = new FindBar(*m_textPane);
    auto *column = qobject_cast<QBoxLayout *>(m_textPane->parentWidget()->layout());
    column->insertWidget(column->indexOf(m_textPane) + 1, m_findBar);
    QWidget *before = m_textPane;
    for (QWidget *part : m_findBar->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        QWidget::setTabOrder(before, part);
        before = part;
    }
    return *m_findBar;
}

// What is typed meanwhile is meant for the text that comes.
void ContentView::waitWhileLoading()
{
    QObject::connect(&m_textPane->patience(), &Patience::givenUp, &m_textLoading, &TextLoading::stop);
    QObject::connect(&m_textLoading, &TextLoading::began, m_textPane, [this] {
        m_textPane->setFocus();
        m_textPane->patience().begin(QCoreApplication::translate("ContentView", "読み込んでいます…"));
    });
    QObject::connect(&m_textLoading, &TextLoading::ended, m_textPane,
                     [this] { m_textPane->patience().end(); });
    QObject::connect(&m_textLoading, &TextLoading::loaded, m_textPane, [this] {
        announce(QCoreApplication::translate("ContentView", "読み込みました"), m_textPane);
    });
    QObject::connect(&m_textLoading, &TextLoading::unfit, m_textPane, [this] {
        showNotice(QMessageBox::Information,
                   QCoreApplication::translate("ContentView", "この文字コードでは読めません。"),
                   QCoreApplication::translate("ContentView", "文章は、もとのままです。"),
                   m_columns->window());
    });
    QObject::connect(m_textPane, &TextPane::filesGiven, &m_textLoading, &TextLoading::openFiles);
}

QWidget *ContentView::playArea()
{
    const AlertActions actions{
        .ok = [] { StandardOutput::standard().post("OK tapped\n"); },
        .cancel = [] { StandardOutput::standard().post("Cancel tapped\n"); },
    };
    auto *board = new JourneyBoard({offset, movingRight, movingStr, btnStatus});
    return alertWhen(showAlert, alertMessage, actions, board);
}

QToolBar *ContentView::toolbar()
{
    return EventToolbar([this](const Event &event) {
        perform(event, m_surroundings.defaults, btnStatus, alertMessage, showAlert);
    });
}

void ContentView::openText()
{
    m_textLoading.openText(m_columns->window());
}

void ContentView::savePDF(const QString &fileName)
{
    try {
        m_pdfExport.savePDF(fileName, text.value(), m_columns->window());
    } catch (const std::bad_alloc &) {
        showNotice(QMessageBox::Warning,
                   QCoreApplication::translate("ContentView", "PDFを保存できません。"),
                   QCoreApplication::translate("ContentView", "メモリが足りません。"), m_columns->window());
    }
}

void ContentView::saveUntitled()
{
    savePDF(QCoreApplication::translate("ContentView", "名称未設定"));
}

void ContentView::launchEdge()
{
    m_browserChoice.launch();
}

void ContentView::simulation()
{
    ::simulation();
}

void ContentView::startSimulation()
{
    ::startSimulation(&text, [this](const QString &status) {
        text.setValue(status);
        if (m_textPane)
            announce(status, m_textPane);
    });
}

void ContentView::readHost()
{
    const QString name = m_surroundings.host.name();
    hostName = name.isEmpty() ? QStringLiteral("Unknown") : name;
    inBackground(
        m_columns, [&host = m_surroundings.host] { return host.userName(); },
        [this](const QString &login) { userName = login; }, Workers::waiting());
}
