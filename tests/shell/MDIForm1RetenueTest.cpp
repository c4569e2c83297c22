// What the frame does while a file is being replaced: nothing that opens, closes or changes a document.
#include "CadreEnFenetre.h"

#include "catalogue/texte/EcritureQrt.h"
#include "platform/Retenue.h"
#include "shell/BarreOutils.h"

#include <QAccessible>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class MDIForm1RetenueTest : public CadreEnFenetre
{
protected:
    MDIForm1RetenueTest() : retenue(std::make_unique<Retenue>()) {}

    /// Nothing has happened yet; it does once the file is whole.
    void Attendre(const std::function<bool()>& faite)
    {
        Laisser();
        EXPECT_FALSE(faite());
        retenue.reset();
        Laisser();
        EXPECT_TRUE(faite());
    }

    std::unique_ptr<Retenue> retenue;
};

} // namespace

TEST_F(MDIForm1RetenueTest, ItemsOfADocumentWait)
{
    Montrer();
    Form1& fenetre = Ouvrir(u"a.qrt"_s);
    fenetre.findChild<QAction*>(u"mFermer"_s)->trigger();
    Attendre([this] { return cadre->Documents().empty(); });
}

TEST_F(MDIForm1RetenueTest, ItemsOfTheFrameWait)
{
    Montrer();
    dialogues.PreparerAnnulation();
    Menu(u"mOuvrir"_s).trigger();
    Attendre([this] { return dialogues.Demandes().size() == 1; });
}

TEST_F(MDIForm1RetenueTest, ItemsOfPopUpMenusWait)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    auto* item = cadre->findChild<QMainWindow*>(u"frmPopup"_s)->findChild<QAction*>(u"mFermerTout"_s);
    item->setEnabled(true);
    item->trigger();
    Attendre([this] { return cadre->Documents().empty(); });
}

TEST_F(MDIForm1RetenueTest, ButtonsOfTheBarsWait)
{
    Montrer();
    Form1& fenetre = Ouvrir(u"a.qrt"_s);
    const bool grille = fenetre.myqrt.MyLV->GridLines();
    // As a screen reader does it, by a call that arrives over the desktop's bus at any time.
    for (QToolButton* bouton : cadre->findChild<BarreOutils*>(u"Toolbar1"_s)->findChildren<QToolButton*>()) {
        QAccessibleInterface* vue = QAccessible::queryAccessibleInterface(bouton);
        if (vue && vue->text(QAccessible::Name) == u"Afficher/Cacher la grille")
            vue->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    QTest::qWait(200); // the toolkit shows the button pressed for a moment first
    Attendre([&] { return fenetre.myqrt.MyLV->GridLines() != grille; });
}

TEST_F(MDIForm1RetenueTest, WindowsArePaintedWhileASaveRuns)
{
    retenue.reset();
    Montrer();
    Form1& fenetre = Ouvrir(u"a.qrt"_s);
    for (int i = 0; i < 20; ++i) {
        QFile image(fenetre.myqrt.TmpFolder + u"i%1.jpg"_s.arg(i));
        ASSERT_TRUE(image.open(QIODevice::WriteOnly) && image.write("x") == 1);
    }
    class Peintures : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            pendant += Retenue::EnCours() && event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int pendant = 0;
    } peintures;
    cadre->installEventFilter(&peintures);
    QTimer minuteur;
    QObject::connect(&minuteur, &QTimer::timeout, cadre.get(), qOverload<>(&QWidget::update));
    minuteur.start(0);
    fenetre.myqrt.FileType = u"2"_s;
    EXPECT_TRUE(EcrireFichier(fenetre.myqrt, false));
    EXPECT_GE(peintures.pendant, 2);
}

TEST_F(MDIForm1RetenueTest, AnotherStartThatClosesTheFrameWaits)
{
    Montrer();
    ASSERT_FALSE(cadre->My_Instance.PrevInstace());
    PlateformeDeTest::Courante().rendezvous.services.fermer();
    Attendre([this] { return !cadre->isVisible(); });
}

TEST_F(MDIForm1RetenueTest, DroppedFilesWait)
{
    Montrer();
    QMimeData donnees;
    donnees.setUrls({QUrl::fromLocalFile(Fichier(u"a.qrt"_s))});
    QDragEnterEvent entree(QPoint(10, 10), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(cadre.get(), &entree); // else the toolkit drops nothing
    QDropEvent lacher(QPointF(10, 10), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(cadre.get(), &lacher);
    Attendre([this] { return cadre->Documents().size() == 1; });
}

TEST_F(MDIForm1RetenueTest, AWindowThatGoesUnclosedLeavesItsUnsavedChanges)
{
    retenue.reset();
    Montrer();
    Form1& changee = Ouvrir(u"a.qrt"_s);
    const QString dossierChange = changee.myqrt.TmpFolder;
    const QString dossierSauve = Ouvrir(u"b.qrt"_s).myqrt.TmpFolder;
    changee.myqrt.IlFautSauver = true;
    cadre.reset();
    EXPECT_TRUE(QFileInfo::exists(dossierChange));
    EXPECT_FALSE(QFileInfo::exists(dossierSauve));
}
