#include "shell/MDIForm1.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/FichiersDeposes.h"
#include "kit/Icones.h"
#include "kit/PlaceDeFenetre.h"
#include "shell/IconesDeMenu.h"
#include "shell/MenuDeSousFenetre.h"
#include "shell/NavigationClavier.h"
#include "shell/PanneauDAccueil.h"
#include "shell/PremierPlan.h"
#include "shell/Relier.h"
#include "shell/StyleDeMenus.h"
#include "shell/Toolbars.h"
#include "shell/frmPopup.h"
#include "ui_MDIForm1.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QKeySequence>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void MontrerDansSonEtat(QMdiSubWindow& fenetre)
{
    const std::optional<double> etat = LireOption(Options::SizeForm1);
    if (etat == int(Agrandie))
        fenetre.showMaximized();
    else if (etat == int(Reduite))
        fenetre.showMinimized();
    else
        fenetre.showNormal();
}

Form1* DocumentDe(const QMdiSubWindow* cadre)
{
    return cadre ? qobject_cast<Form1*>(cadre->widget()) : nullptr;
}

} // namespace

MDIForm1::MDIForm1(QWidget* parent)
    : QMainWindow(parent), m_ui(std::make_unique<Ui::MDIForm1>()), m_items(*this, [this] { return Lieu(); })
{
    m_ui->setupUi(this);
    m_menusDuCadre = m_ui->Menus->actions();
    setWindowIcon(Icone(u"zelvane"_s));
    StyleDeMenus::Donner(*m_ui->Menus);
    ColorierFond();
    InstallerCadre(this);
    InitialiserTempFolder();
    const auto montrerBarre = [this] { MontrerGrandesIcones(LireOption(Options::GrandesIcones)); };
    montrerBarre();
    SuivreOption(Options::GrandesIcones, *this, montrerBarre);
    ChargerLangue(LireOption(Options::QRTLangue));
    m_textesDeQt.Accorder();
    m_ui->mPlugin->menuAction()->setVisible(false);
    DonnerIcones(*this);
    RelierBarres();
    RelierMenus();
    RelierAccueil();
    SuivreFenetreActive();

    m_ui->Fenetres->viewport()->installEventFilter(this);
    connect(m_ui->Fenetres, &QMdiArea::subWindowActivated, this, &MDIForm1::SuivreFenetreActive);
    connect(m_ui->TabStrip1, &BandeOnglets::OngletChoisi, this, &MDIForm1::SuivreOnglet);
    connect(m_ui->TabStrip1, &BandeOnglets::FermetureDemandee, this, &MDIForm1::FermerOnglet);
    new NavigationClavier(*this, {m_ui->Toolbar1, m_ui->Toolbar2}, *m_ui->TabStrip1, [this]() -> QWidget* {
        if (Form1* active = FenetreActive())
            return active;
        return Documents().empty() ? &m_accueil->PremierControle() : nullptr;
    });
    m_popup = new frmPopup(*this);
    connect(m_ui->TabStrip1, &BandeOnglets::MenuDemande, m_popup, &frmPopup::MontrerMenuMdiTab);
    RelierInstance();
    LangForm(*this);
    // A small screen gets a frame that fits it.
    resize(size().boundedTo(PlaceDansLEcran(*this)));
    GarderLaPlace(*this, Options::PlaceDuCadre);
}

/// Another start of the program sends its file here. It may come while a dialog is open, and opens all the same.
void MDIForm1::RelierInstance()
{
    My_Instance.ReceiveOutputs = [this](const QString& texte) {
        // At once: the other start asks for it when the file is open, and the opening may have something to ask first.
        MettreAuPremierPlan(*this, QString());
        OuvrirEtNoter({texte});
    };
    My_Instance.ActionCmd = ActionInstance::Rien;
    My_Instance.InitClass({.montrer = [this](const QString& jeton) { MettreAuPremierPlan(*this, jeton); },
                           .fermer = [this] { Retenue::Apres(this, [this] { close(); }); },
                           .finir = {}});
}

void MDIForm1::langChange()
{
    m_textesDeQt.Accorder();
    ChangerLangueDe(*this);
    m_accueil->MettreTextes();
    MontrerRecentsALAccueil();
    for (QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList()) {
        TraduireMenuDeSousFenetre(*cadre);
        if (Form1* fenetre = DocumentDe(cadre)) {
            const QString nom = fenetre->Caption();
            ChangerLangueDe(*fenetre);
            fenetre->SetCaption(nom);
            fenetre->RedrawAll();
        }
    }
    ChangerLangueDe(*m_popup);
    for (QDialog* dialogue : findChildren<QDialog*>())
        ChangerLangueDe(*dialogue);
}

MDIForm1::~MDIForm1()
{
    // The windows go with the area, after this: nothing is to follow them any more.
    disconnect(m_ui->Fenetres, nullptr, this, nullptr);
    m_ui->Fenetres->viewport()->removeEventFilter(this);
    // They look at the frame to their last moment.
    qDeleteAll(m_ui->Fenetres->subWindowList());
    InstallerCadre(nullptr);
}

std::vector<FenetreDocument*> MDIForm1::Documents() const
{
    std::vector<FenetreDocument*> fenetres;
    for (const QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList(QMdiArea::CreationOrder)) {
        if (FenetreDocument* document = DocumentDe(cadre))
            fenetres.push_back(document);
    }
    return fenetres;
}

Form1* MDIForm1::FenetreActive() const
{
    return DocumentDe(m_ui->Fenetres->currentSubWindow());
}

FenetreDocument& MDIForm1::NouvelleFenetre()
{
    auto* document = new Form1(*this);
    // Windows and tabs find each other by this key; chance may have drawn it before.
    const auto fenetres = Documents();
    while (std::ranges::any_of(fenetres, [&](const auto* autre) { return autre->Tag == document->Tag; }))
        document->Tag = NouveauTag();
    const QRect place = PlaceEnCascade(*m_ui->Fenetres, static_cast<int>(fenetres.size()), document->size());
    QMdiSubWindow* cadre = m_ui->Fenetres->addSubWindow(document);
    m_accueil->hide();
    cadre->setGeometry(place);
    cadre->setAttribute(Qt::WA_DeleteOnClose);
    cadre->setWindowIcon(windowIcon());
    // The keys of a document's window stand in its own menus. Two takers for one key, and neither would act.
    for (QAction* commande : cadre->systemMenu()->actions())
        commande->setShortcuts(QList<QKeySequence>());
    MontrerDansSonEtat(*cadre);
    document->myqrt.Ouvrir->Montrer(true);
    return *document;
}

void MDIForm1::AmenerDevant(FenetreDocument& fenetre)
{
    if (QMdiSubWindow* cadre = CadreDe(fenetre)) {
        if (cadre->isMinimized())
            cadre->showNormal();
        m_ui->Fenetres->setActiveSubWindow(cadre);
    }
}

QMdiSubWindow* MDIForm1::CadreDe(const FenetreDocument& fenetre) const
{
    const auto cadres = m_ui->Fenetres->subWindowList();
    const auto trouve = std::ranges::find_if(cadres, [&](const auto* cadre) { return DocumentDe(cadre) == &fenetre; });
    return trouve == cadres.end() ? nullptr : *trouve;
}

// ---- Tabs

void MDIForm1::AjouterOnglet(const FenetreDocument& fenetre)
{
    m_ui->TabStrip1->Ajouter(fenetre.Tag, fenetre.Caption());
    MontrerEtatOnglet(fenetre);
    SuivreFenetreActive();
}

void MDIForm1::MettreTitreOnglet(const FenetreDocument& fenetre, const QString& titre)
{
    m_ui->TabStrip1->MettreTitre(fenetre.Tag, titre);
    MontrerEtatOnglet(fenetre);
}

void MDIForm1::MontrerEtatOnglet(const FenetreDocument& fenetre)
{
    m_ui->TabStrip1->MettreEtat(fenetre.Tag, fenetre.myqrt.CheminConnu(), fenetre.myqrt.AChange());
}

/// The strip, the tool bars, the menu bar and the list of recent files follow the window that became active.
void MDIForm1::SuivreFenetreActive()
{
    Form1* active = FenetreActive();
    RedrawAll();
    AccorderBarres();
    if (active) {
        active->RedrawAll();
        const bool actifs = std::exchange(OngletsActifs, false);
        m_ui->TabStrip1->Selectionner(active->Tag);
        OngletsActifs = actifs;
    }
    MontrerMenus(active);
    m_ui->mFenetre->menuAction()->setVisible(active);
    MajMenuRecents(*this);
    m_accueil->setVisible(Documents().empty());
}

/// Brings the window of the tab that was chosen to the front.
void MDIForm1::SuivreOnglet()
{
    if (!OngletsActifs)
        return;
    if (Form1* fenetre = FenetreDeLOnglet(m_ui->TabStrip1->currentIndex() + 1))
        AmenerDevant(*fenetre);
}

/// The window of a tab, from 1: the first one that has its key.
Form1* MDIForm1::FenetreDeLOnglet(int numero) const
{
    const QString cle = m_ui->TabStrip1->Cle(numero);
    const auto cadres = m_ui->Fenetres->subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow* cadre : cadres) {
        if (Form1* fenetre = DocumentDe(cadre); fenetre && fenetre->Tag == cle)
            return fenetre;
    }
    return nullptr;
}

/// The window asks its questions as it does for any close.
void MDIForm1::FermerOnglet(int numero)
{
    if (Form1* fenetre = FenetreDeLOnglet(numero))
        Retenue::Apres(fenetre, [fenetre] { fenetre->Decharger(); });
}

Form1* MDIForm1::AmenerOngletRetenu()
{
    Form1* fenetre = FenetreDeLOnglet(m_ui->TabStrip1->Tag.toInt());
    if (fenetre)
        AmenerDevant(*fenetre);
    return fenetre;
}

bool MDIForm1::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_ui->Fenetres->viewport() && event->type() == QEvent::ChildRemoved) {
        const auto* partie = qobject_cast<QMdiSubWindow*>(static_cast<QChildEvent*>(event)->child());
        if (const FenetreDocument* document = DocumentDe(partie)) {
            const bool actifs = std::exchange(OngletsActifs, false);
            m_ui->TabStrip1->Retirer(document->Tag);
            OngletsActifs = actifs;
            // Once the area has let go of the window.
            QMetaObject::invokeMethod(this, &MDIForm1::SuivreFenetreActive, Qt::QueuedConnection);
        }
    }
    return QMainWindow::eventFilter(objet, event);
}

// ---- Menus and tool bars

void MDIForm1::RelierBarres()
{
    m_ui->Toolbar1->Remplir(BoutonsDeToolbar1());
    m_ui->Toolbar2->Remplir(BoutonsDeToolbar2());
    for (const BarreOutils* barre : {m_ui->Toolbar1, m_ui->Toolbar2})
        connect(barre, &BarreOutils::BoutonPresse, this,
                [this](const QString& cle) { Retenue::Apres(this, [this, cle] { Commande(*this, cle); }); });
}

void MDIForm1::AccorderBarres()
{
    const LieuDeCommande lieu = Lieu();
    const EtatDuLieu etat(lieu);
    for (BarreOutils* barre : {m_ui->Toolbar1, m_ui->Toolbar2})
        barre->Accorder(lieu, etat);
}

LieuDeCommande MDIForm1::Lieu()
{
    return {*this, FenetreActive()};
}

void MDIForm1::MontrerMenuClickDroit(bool avecSelection, const QPoint& endroit)
{
    m_popup->MontrerMenuClickDroit(avecSelection, endroit);
}

void MDIForm1::RelierMenus()
{
    m_items.BrancherNommes();
    for (QAction* recent : {m_ui->mRecent_0, m_ui->mRecent_1, m_ui->mRecent_2, m_ui->mRecent_3, m_ui->mRecent_4})
        Relier(*recent, this, [this, recent] { OuvrirEtNoter({recent->data().toString()}); });
    for (const QMenu* menu : m_ui->Menus->findChildren<QMenu*>())
        connect(menu, &QMenu::aboutToShow, this, &MDIForm1::RedrawAll);
}

/// The menus of the active window take the place of the frame's own in its bar; a window without any leaves them.
void MDIForm1::MontrerMenus(const Form1* active)
{
    QList<QAction*> menus = m_menusDuCadre;
    if (active) {
        if (auto* barre = active->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)) {
            barre->hide();
            menus = barre->actions();
        }
    }
    if (menus == m_ui->Menus->actions())
        return;
    m_ui->Menus->clear();
    m_ui->Menus->addActions(menus);
}

void MDIForm1::MettreRecent(int index, const QString& chemin)
{
    QAction* recent = findChild<QAction*>(u"mRecent_%1"_s.arg(index), Qt::FindDirectChildrenOnly);
    recent->setVisible(!chemin.isEmpty());
    if (chemin.isEmpty())
        return;
    recent->setText(QString(chemin).replace(u'&', u"&&"_s));
    recent->setData(chemin);
}

void MDIForm1::MontrerBarRecent(bool visible)
{
    m_ui->mBarRecent->setVisible(visible);
    MontrerRecentsALAccueil();
}

void MDIForm1::MontrerGrandesIcones(bool grandes)
{
    m_ui->Toolbar1->setVisible(!grandes);
    m_ui->Toolbar2->setVisible(grandes);
    RedrawAll();
}

bool MDIForm1::GrandesIcones() const
{
    return !m_ui->Toolbar2->isHidden();
}

void MDIForm1::mGrandesIcones_Click()
{
    MontrerGrandesIcones(!GrandesIcones());
    EcrireOption(Options::GrandesIcones, GrandesIcones());
}

void MDIForm1::RedrawAll()
{
    m_items.Accorder();
}

void MDIForm1::MontrerNom(FenetreDocument& fenetre)
{
    if (const QString nom = fenetre.myqrt.filename(); !nom.isEmpty()) {
        fenetre.SetCaption(nom);
        MettreTitreOnglet(fenetre, nom);
    }
    MajRecents();
}

void MDIForm1::MajRecents()
{
    MajMenuRecents(*this);
    for (const QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList()) {
        if (Form1* fenetre = DocumentDe(cadre))
            MajMenuRecents(*fenetre);
    }
}

// ---- Windows

void MDIForm1::EnCascade()
{
    DisposerEnCascade(*m_ui->Fenetres);
}

void MDIForm1::EnMosaique(Mosaique sens)
{
    DisposerEnMosaique(*m_ui->Fenetres, sens);
}

void MDIForm1::ArrangerLesIcones()
{
    ArrangerIcones(*m_ui->Fenetres);
}

void MDIForm1::MinimiserTout()
{
    // While one window is maximised, each that becomes active is maximised too, and reducing a window makes it active.
    RestaurerTout();
    for (QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList(QMdiArea::CreationOrder))
        cadre->showMinimized();
}

void MDIForm1::RestaurerTout()
{
    for (QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList(QMdiArea::CreationOrder))
        cadre->showNormal();
}

void MDIForm1::OuvrirEtNoter(const QStringList& chemins)
{
    for (const QString& chemin : chemins)
        OuvrirFichier(*this, chemin, TypeQrt2, true);
    MajMenuRecents(*this);
}

void MDIForm1::dragEnterEvent(QDragEnterEvent* event)
{
    if (!FichiersDeposes(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MDIForm1::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // Later: the program that the files come from waits for the end of this event, and a message could keep it.
    QMetaObject::invokeMethod(
        this,
        [this, chemins = FichiersDeposes(*event->mimeData())] {
            Retenue::Apres(this, [this, chemins] { OuvrirEtNoter(chemins); });
        },
        Qt::QueuedConnection);
}

/// The empty frame: a shade off the windows' own colour, in light and dark themes alike.
void MDIForm1::ColorierFond()
{
    const QColor fond = palette().color(QPalette::Window);
    m_ui->Fenetres->setBackground(fond.lightnessF() > 0.5 ? fond.darker(108) : fond.darker(125));
}

void MDIForm1::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ColorierFond();
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        MajMenuRecents(*this);
}

void MDIForm1::closeEvent(QCloseEvent* event)
{
    // All are asked before the first one goes: a single refusal leaves every window as it is.
    const auto fenetres = Documents();
    // A dialog on show works on one of them, and another start of the program can ask for the end at any moment.
    if (QApplication::activeModalWidget() ||
        !std::ranges::all_of(fenetres, [this](auto* fenetre) { return PeutFermer(*this, *fenetre); })) {
        event->ignore();
        return;
    }
    // What is left unsaved now is to be dropped; nobody is asked twice.
    for (FenetreDocument* fenetre : fenetres)
        fenetre->myqrt.IlFautSauver = false;
    m_ui->Fenetres->closeAllSubWindows();
    event->setAccepted(m_ui->Fenetres->subWindowList().isEmpty());
}
