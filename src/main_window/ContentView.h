#pragma once

#include "browsers/BrowserChoice.h"
#include "document/ReadingText.h"
#include "main_window/Surroundings.h"
#include "preferences/AppStorage.h"
#include "preferences/PreferenceKeys.h"
#include "printing/PdfExport.h"
#include "reading/FontSize.h"
#include "reading/TextLoading.h"
#include "view/State.h"

#include <QPointer>
#include <QStringList>
#include <QUuid>

#include <optional>

class Columns;
class FindBar;
class Frame;
class QMenu;
class QToolBar;
class TextPane;

/// The content of a main window: its state, its actions, and the view that shows them. Each window
/// has its own; the fields must outlive the view.
class ContentView {
public:
    /// The values of the three fields that can be given from outside. An sp2 that isn't given is the
    /// integer stored under IntKeyToggle2.
    struct Seed {
        QString uString = {};
        qint64 sp1 = 0;
        std::optional<qint64> sp2 = {};
    };

    explicit ContentView(Surroundings &surroundings = Surroundings::standard());
    explicit ContentView(Seed seed, Surroundings &surroundings = Surroundings::standard());
    Q_DISABLE_COPY_MOVE(ContentView)

    /// Builds the view, and the toolbar that goes with it; called once each.
    Frame *body();
    QToolBar *toolbar();

    void openText();
    void savePDF(const QString &fileName);
    void launchEdge();
    /// The sequence itself, on this thread; waits for who reads the output. The button does not do this.
    void simulation();

    // The menu items that concern what is in this window.
    void fillFileMenu(QMenu &menu);
    void fillEditMenu(QMenu &menu);
    void fillViewMenu(QMenu &menu);

private:
    void startSimulation();
    void readHost();
    void saveUntitled();
    void addFindItems(QMenu &menu);
    QWidget *detailColumn();
    FindBar &findBar();
    void waitWhileLoading();
    QWidget *playArea();

    Surroundings &m_surroundings;

    // The state, in its documented order; seeded here and when a window's view appears.
    State<std::optional<QUuid>> selection;
    ReadingText text;
    State<double> offset{0.0};
    State<bool> movingRight{true};
    State<QString> movingStr{QStringLiteral("船🛥")};

public:
    AppStorage<QString> uString;
    State<qint64> sp1;
    State<qint64> sp2;

private:
    State<QStringList> browsers;
    State<QString> selectedBrowser;
    State<qint64> btnStatus;
    State<bool> showAlert{false};
    State<QString> alertMessage;
    State<double> fontSize{FontSize::initial};
    State<QString> hostName;
    State<QString> userName;

    // The tools that work on it.
    TextLoading m_textLoading;
    PdfExport m_pdfExport;
    BrowserChoice m_browserChoice;

    QPointer<Columns> m_columns;
    QPointer<TextPane> m_textPane;
    QPointer<FindBar> m_findBar;
};
