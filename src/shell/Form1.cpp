#include "shell/Form1.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/TriDeTable.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "images/FichierImage.h"
#include "kit/Couleurs.h"
#include "shell/ItemsDeCommandes.h"
#include "shell/LigneDEtat.h"
#include "shell/MDIForm1.h"
#include "ui_Form1.h"
#include "vue/Infobulle.h"
#include "vue/PoliceDeTable.h"
#include "vue/TexteDeBulle.h"

#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTcpSocket>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double LargeurImages = 1500; // units of 1/1440 inch

EtatDeForm1 EtatDe(const QWidget& fenetre)
{
    if (fenetre.isMinimized())
        return Reduite;
    return fenetre.isMaximized() ? Agrandie : Normale;
}

/// Whether a key asks for the menu of the right button. On X11, Qt knows the one key that many keyboards lack.
bool DemandeLeMenu(const QEvent& event)
{
    if (event.type() == QEvent::ContextMenu)
        return static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Keyboard;
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& touche = static_cast<const QKeyEvent&>(event);
    return touche.key() == Qt::Key_F10 && touche.modifiers() == Qt::ShiftModifier;
}

} // namespace

Form1::Form1(MDIForm1& cadre, QWidget* parent)
    : QMainWindow(parent), wck_http(new QTcpSocket(this)), m_cadre(cadre), m_ui(std::make_unique<Ui::Form1>()),
      m_items(std::make_unique<ItemsDeCommandes>(*this, [this] { return Lieu(); }))
{
    m_ui->setupUi(this);
    wck_http->setObjectName(u"wck_http"_s);
    // A window inside another one; QMainWindow would make itself a window of the desktop.
    setWindowFlags(Qt::Widget);
    m_ui->Menus->hide();
    m_ui->Img->setFixedWidth(m_ui->ListView1->PixelsDe(LargeurImages));
    m_etat = new LigneDEtat(*m_ui->StatusBar1, myqrt);
    for (Drapeau* drapeau : {&myqrt.IlFautSauver, &myqrt.ChangementsTus})
        drapeau->AChange = [this] { MontrerEtat(); };
    myqrt.AEteEnregistree = [this] { m_etat->MontrerEnregistrement(); };
    m_ui->wait->Montrer(false);
    m_ui->fOuvrir->Montrer(false);

    Tag = NouveauTag();
    myqrt.wait = m_ui->wait;
    myqrt.Ouvrir = m_ui->fOuvrir;
    BrancherTable();
    FaireMenus();
    setFocusProxy(m_ui->ListView1);
    LangForm(*this);
    RedrawAll(true);
    for (const Option* option : std::initializer_list<const Option*>{
             &Options::FontName, &Options::FontSize, &Options::FontBold, &Options::FontItalic, &Options::FontColor})
        SuivreOption(*option, *this, [this] { RedrawAll(true); });
}

Form1::~Form1()
{
    for (Drapeau* drapeau : {&myqrt.IlFautSauver, &myqrt.ChangementsTus})
        drapeau->AChange = nullptr;
    // The tip and the view look at the table to its last moment.
    delete m_infobulle;
    delete m_ui->ListView1;
}

void Form1::BrancherTable()
{
    VueTable* vue = m_ui->ListView1;
    vue->Afficher(myqrt.Table);
    vue->horizontalHeader()->setSectionsClickable(true);
    vue->installEventFilter(this);
    m_ui->fOuvrir->installEventFilter(this);
    vue->Invitation = [this] {
        // While a file is read its entries are still to come.
        if (!m_ui->fOuvrir->isHidden() || myqrt.Table.ColumnHeaders.Count() == 0)
            return QString();
        const QKeySequence touche(QString::fromLatin1(Rang(u"addentree")->touches));
        return LangMsg(u"msgTableVide"_s, u"Aucune entrée pour l'instant : %1 en ajoute une"_s)
            .Remplacer(u"%1"_s, touche.toString(QKeySequence::NativeText))
            .texte;
    };
    // Without entries no picture is looked for, and only the layout takes the last one away.
    connect(vue, &VueTable::TableRafraichie, this, [this] { RedrawAll(myqrt.ItemsCount() == 0); });
    connect(vue, &VueTable::ToucheRelachee, this, [this] { RedrawAll(); });
    // Later: the window may be closed while they are dragged, and who drops waits for the end of the event.
    connect(vue, &VueTable::LignesEmportees, this, &Form1::TirerLesEntrees, Qt::QueuedConnection);
    connect(vue, &VueTable::TexteDepose, this, &Form1::TexteDepose, Qt::QueuedConnection);
    connect(vue, &VueTable::ClicDroit, this, &Form1::ClicDroitTable);
    connect(vue, &VueTable::EntreeCliquee, this, &Form1::MontrerEtat);
    connect(vue, &VueTable::EnteteCliquee, this, &Form1::EntetePressee);
    connect(vue, &VueTable::ToucheDeCommande, this, &Form1::ToucheDeCommande);
    connect(vue, &VueTable::EntreeDoubleCliquee, this, &Form1::DoubleClicTable);
    connect(m_ui->Img, &PanneauImage::DoubleClic, this, &Form1::DoubleClicImage);
    connect(m_ui->Img, &PanneauImage::ClicDroit, this, &Form1::ClicDroitImage);

    m_bulle = new TexteDeBulle(m_ui->Contenu);
    m_bulle->setObjectName(u"myToolTipText"_s);
    m_infobulle = new Infobulle(*vue, *m_bulle, this);
}

// ---- life

bool Form1::event(QEvent* event)
{
    const bool pris = QMainWindow::event(event);
    if (event->type() == QEvent::ParentChange)
        BrancherCadre();
    return pris;
}

void Form1::BrancherCadre()
{
    if (const auto* autour = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(autour, &QMdiSubWindow::windowStateChanged, this, &Form1::EtatChange, Qt::UniqueConnection);
}

void Form1::EtatChange(Qt::WindowStates avant, Qt::WindowStates apres)
{
    // Once the windows have settled: the area passes through other states on the way.
    QMetaObject::invokeMethod(this, &Form1::GarderEtat, Qt::QueuedConnection);
    if (apres.testFlag(Qt::WindowActive) && !avant.testFlag(Qt::WindowActive))
        Activer();
    // While it was reduced nothing was laid out, and it may come back in the size that it had.
    else if (avant.testFlag(Qt::WindowMinimized) && !apres.testFlag(Qt::WindowMinimized))
        RedrawAll(true);
}

void Form1::Activer()
{
    MajMenuRecents(*this);
    RedrawAll(true);
}

/// Documents opened later come in the same state.
void Form1::GarderEtat() const
{
    // Reduced, this window is hidden, and only the one around it is seen.
    const auto* autour = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (!autour || !autour->isVisible())
        return;
    // A maximised window that another one takes the place of is put back to normal by the area, not by the user.
    if (autour->mdiArea() && autour->mdiArea()->currentSubWindow() != autour)
        return;
    const EtatDeForm1 etat = EtatDe(*autour);
    if (LireOption(Options::SizeForm1) != int(etat))
        EcrireOption(Options::SizeForm1, etat);
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    QMetaObject::invokeMethod(this, &Form1::GarderEtat, Qt::QueuedConnection);
    RedrawAll(true);
}

/// Where a key, which asks for the menu as well as the mouse does, gets it: at the entry with the focus, as far as that
/// one is seen.
QPoint Form1::PlaceDuFocus() const
{
    const QWidget& vue = *ListView1().viewport();
    const QRect cellule = ListView1().visualRect(ListView1().currentIndex()) & vue.rect();
    return vue.mapToGlobal((cellule.isEmpty() ? vue.rect() : cellule).center());
}

bool Form1::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_ui->ListView1 && event->type() == QEvent::FocusIn) {
        RedrawAll();
        MajMenuRecents(*this);
    }
    if (objet == m_ui->fOuvrir && event->type() == QEvent::Hide)
        m_ui->ListView1->viewport()->update();
    if (objet == m_ui->ListView1 && DemandeLeMenu(*event)) {
        ClicDroitTable(PlaceDuFocus());
        return true;
    }
    return QMainWindow::eventFilter(objet, event);
}

void Form1::Decharger()
{
    // Inside the frame the window around this one goes, and takes it along.
    if (QWidget* autour = parentWidget())
        autour->close();
    else
        close();
}

void Form1::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // The ink of the table depends on what it stands on.
    if (event->type() == QEvent::PaletteChange)
        AppliquerPolice();
}

void Form1::closeEvent(QCloseEvent* event)
{
    if (!PeutFermer(m_cadre, *this)) {
        event->ignore();
        return;
    }
    FermerDossier();
    event->accept();
}

// ---- refresh

void Form1::RedrawAll(bool miseEnPage)
{
    MontrerEtat();
    AccorderMenus();
    m_cadre.AccorderBarres();
    const bool reduite = parentWidget() && parentWidget()->isMinimized();
    if (miseEnPage && reduite)
        return;
    if (miseEnPage)
        MettreEnPage();
    if (const ListItem entree = myqrt.Table.SelectedItem())
        AfficheImageEnCours(entree.Index());
    if (miseEnPage)
        AppliquerPolice();
}

/// What changes while the user works: the status line and the mark on the tab.
void Form1::MontrerEtat()
{
    m_etat->Montrer();
    m_cadre.MontrerEtatOnglet(*this);
}

void Form1::MettreEnPage()
{
    m_ui->Img->Vider();
    m_ui->Img->setVisible(ImagesMontrees());
}

void Form1::AppliquerPolice()
{
    const QFont police = PoliceDeTable();
    if (m_ui->ListView1->font() != police) {
        setFont(police);
        m_ui->ListView1->setFont(police);
        m_etat->EcarterComptes();
    }
    QPalette couleurs;
    if (const std::optional<QColor> encre = CouleurDeTable())
        couleurs.setColor(QPalette::Text, EncreLisible(*encre, couleurs.color(QPalette::Base)));
    if (m_ui->ListView1->palette().color(QPalette::Text) != couleurs.color(QPalette::Text))
        m_ui->ListView1->setPalette(couleurs);
}

void Form1::AfficheImageEnCours(int index)
{
    const ListItem entree = myqrt.Table.ListItems(index);
    const QString nom = entree && ImagesMontrees() ? entree.Tag() : QString();
    MontrerImage(FichierImage(myqrt.TmpFolder, nom));
}

void Form1::MontrerImage(const QString& fichier)
{
    if (fichier.isEmpty())
        m_ui->Img->Vider();
    else
        m_ui->Img->Charger(fichier);
}

void Form1::RendreVisible(int ligne)
{
    m_ui->ListView1->RendreVisible(ligne);
}

VueTable& Form1::ListView1() const
{
    return *m_ui->ListView1;
}

// ---- the table and the picture

void Form1::EntetePressee(int colonne)
{
    if (TrierParColonne(myqrt, colonne))
        RedrawAll(true);
}
