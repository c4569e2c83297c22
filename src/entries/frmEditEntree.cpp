#include "entries/frmEditEntree.h"

#include "base/AfficherMsg.h"
#include "base/Icones.h"
#include "catalogue/MyLV.h"
#include "entries/SaisieDEntree.h"
#include "extensions/LangForm.h"
#include "extensions/modLang.h"
#include "images/ChoisirImage.h"
#include "images/FichierImage.h"
#include "ui_frmEditEntree.h"

#include <QKeyEvent>
#include <QShowEvent>
#include <QSignalBlocker>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Units of 1/1440 inch.
constexpr int UnitesParPouce = 1440;
constexpr int LargeurTitres = 1500;
constexpr int LargeurValeurs = 4500;
constexpr int LargeurComboSansListe = 3872;
constexpr int LargeurComboAvecListe = 3590;

constexpr int HauteurListe = 360;
constexpr int CoteIcone = 16;

constexpr int ColonneTitre = 0;
constexpr int ColonneValeur = 1;
constexpr int RoleTextes = Qt::UserRole; ///< the pre-recorded texts of a row's column

/// The digit of a key from 1 to 9, else 0. The keys of the upper row count by their place, too: on French keyboards
/// they give a digit with Shift only.
int ChiffreDe(const QKeyEvent& touche)
{
    constexpr quint32 PremiereDuRang = 10; // of the keys "1" to "9" under X11 and Wayland
    if (touche.key() >= Qt::Key_1 && touche.key() <= Qt::Key_9)
        return touche.key() - Qt::Key_0;
    const quint32 place = touche.nativeScanCode();
    return place >= PremiereDuRang && place < PremiereDuRang + 9 ? static_cast<int>(place - PremiereDuRang) + 1 : 0;
}

Qt::KeyboardModifiers Modificateurs(const QKeyEvent& touche)
{
    return touche.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

int EnPixels(const QWidget& widget, int unites)
{
    return qRound(static_cast<double>(unites) * widget.logicalDpiX() / UnitesParPouce);
}

} // namespace

frmEditEntree::frmEditEntree(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmEditEntree>())
{
    m_ui->setupUi(this);
    m_ui->btplus->setIcon(Icone(u"addentree"_s));
    m_ui->btmoins->setIcon(Icone(u"delentree"_s));
    LangForm(*this);
    MesurerControles();
    Brancher();
    m_ui->Combo1->setFocus();
}

frmEditEntree::~frmEditEntree() = default;

void frmEditEntree::Brancher()
{
    m_ui->Combo1->installEventFilter(this);
    m_ui->LV->installEventFilter(this);
    m_ui->LV->viewport()->installEventFilter(this);
    connect(m_ui->Combo1, &ChampDEntree::Change, this, &frmEditEntree::EcrireValeur);
    connect(m_ui->Combo1, &ChampDEntree::Entree, this, &frmEditEntree::ChargerCombo);
    connect(m_ui->LV, &QTreeWidget::itemSelectionChanged, this, &frmEditEntree::ChargerCombo);
    connect(m_ui->btplus, &QToolButton::clicked, this, &frmEditEntree::Memoriser);
    connect(m_ui->btmoins, &QToolButton::clicked, this, &frmEditEntree::Oublier);
    connect(m_ui->Img, &ZoneImage::Clic, this, &frmEditEntree::ChangerImage);
    connect(m_ui->btPrecedent, &QPushButton::clicked, this, [this] { Aller(Sens::Precedente); });
    connect(m_ui->btSuivant, &QPushButton::clicked, this, [this] { Aller(Sens::Suivante); });
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmEditEntree::Ajouter);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
}

/// The first size shows both columns whole, and Combo1 at the narrowest it can be: it grows with the form.
void frmEditEntree::MesurerControles()
{
    const int cadre = 2 * m_ui->LV->frameWidth();
    m_ui->LV->setMinimumWidth(EnPixels(*this, LargeurTitres + LargeurValeurs) + cadre);
    m_ui->LV->setMinimumHeight(HauteurListe / 2);
    m_ui->LV->setColumnWidth(ColonneTitre, EnPixels(*this, LargeurTitres));
    m_ui->LV->setColumnWidth(ColonneValeur, EnPixels(*this, LargeurValeurs));
    for (QToolButton* bouton : {m_ui->btplus, m_ui->btmoins})
        bouton->setIconSize({CoteIcone, CoteIcone});
    MettreLargeurCombo();
    resize(sizeHint().width(), HauteurListe);
}

int16_t frmEditEntree::IndexPour(int position)
{
    return position > std::numeric_limits<int16_t>::max() ? int16_t{0} : static_cast<int16_t>(position);
}

void frmEditEntree::MettreCaptionAjouter(const QString& caption)
{
    m_ui->btAjouter->setText(caption);
    // Alt and the first letter press a button whose caption marks no letter of its own.
    if (m_ui->btAjouter->shortcut().isEmpty() && !caption.isEmpty())
        m_ui->btAjouter->setShortcut(QKeySequence(u"Alt+"_s + caption.front().toUpper()));
}

void frmEditEntree::CacherNavigation()
{
    m_ui->btPrecedent->hide();
    m_ui->btSuivant->hide();
}

// ---- Rows ----

void frmEditEntree::AjouterLigne(const QString& titre, const QString& valeur, const QString& textes)
{
    auto* ligne = new QTreeWidgetItem(m_ui->LV, {titre, valeur});
    ligne->setToolTip(ColonneTitre, titre);
    ligne->setData(ColonneTitre, RoleTextes, textes);
    if (NombreDeLignes() == 1)
        ChoisirLigne(0);
}

void frmEditEntree::RemplirColonnes()
{
    for (int i = 1; Table && i <= Table->ColumnHeaders.Count(); ++i)
        AjouterLigne(Table->ColumnHeaders(i).Text(), QString(), Table->ColumnHeaders(i).Tag());
}

int frmEditEntree::NombreDeLignes() const
{
    return m_ui->LV->topLevelItemCount();
}

QString frmEditEntree::Titre(int ligne) const
{
    return m_ui->LV->topLevelItem(ligne - 1)->text(ColonneTitre);
}

QString frmEditEntree::Valeur(int ligne) const
{
    return m_ui->LV->topLevelItem(ligne - 1)->text(ColonneValeur);
}

QString frmEditEntree::Textes(int ligne) const
{
    return m_ui->LV->topLevelItem(ligne - 1)->data(ColonneTitre, RoleTextes).toString();
}

QStringList frmEditEntree::Valeurs() const
{
    QStringList valeurs;
    for (int ligne = 1; ligne <= NombreDeLignes(); ++ligne)
        valeurs.append(Valeur(ligne));
    return valeurs;
}

QTreeWidgetItem* frmEditEntree::LigneChoisie() const
{
    return m_ui->LV->selectedItems().value(0);
}

/// Selects the row `rang` (from 0) alone and brings it into view.
void frmEditEntree::ChoisirLigne(int rang)
{
    QTreeWidgetItem* ligne = m_ui->LV->topLevelItem(rang);
    m_ui->LV->setCurrentItem(ligne);
    m_ui->LV->scrollToItem(ligne);
}

/// The field's text stands in the selected row as soon as it changes, so that nothing else need fetch it there.
void frmEditEntree::EcrireValeur(const QString& valeur)
{
    if (QTreeWidgetItem* ligne = LigneChoisie())
        ligne->setText(ColonneValeur, valeur);
}

/// The width of Combo1 tells whether the row has a list: it is the narrower one then.
void frmEditEntree::MettreLargeurCombo()
{
    const QTreeWidgetItem* ligne = LigneChoisie();
    const bool aListe = ligne && !ligne->data(ColonneTitre, RoleTextes).toString().isEmpty();
    const int pleine = EnPixels(*this, LargeurComboSansListe);
    const int largeur = aListe ? EnPixels(*this, LargeurComboAvecListe) : pleine;
    m_ui->Combo1->setMinimumWidth(largeur);
    m_ui->PlaceDuChamp->setContentsMargins(0, 0, pleine - largeur, 0);
    layout()->activate();
}

// ---- Entry and field ----

void frmEditEntree::ChargerEntree()
{
    if (!Table || !Table->ListItems.Existe(IndexEntree))
        return;
    const ListItem entree = Table->ListItems(IndexEntree);
    const QStringList valeurs = entree.Valeurs();
    {
        const QSignalBlocker muet(m_ui->LV);
        m_ui->LV->clear();
        for (int i = 1; i <= Table->ColumnHeaders.Count(); ++i)
            AjouterLigne(Table->ColumnHeaders(i).Text(), valeurs.at(i - 1), Table->ColumnHeaders(i).Tag());
    }
    // An entry without an image keeps the one of the entry before in the zone, and gets it when it is written: meant.
    if (const QString image = entree.Tag(); !image.isEmpty()) {
        m_image = image;
        MontrerImage();
    }
    m_ui->Combo1->Montrer(entree.Text());
    MettreLargeurCombo();
}

void frmEditEntree::EnregistrerEntree()
{
    if (!Table || !Table->ListItems.Existe(IndexEntree) || RefuserVide())
        return;
    ListItem entree = Table->ListItems(IndexEntree);
    entree.EcrireValeurs(Valeurs());
    entree.SetTag(m_image);
    entree.SetSmallIcon(IconeImage(CheminImages, m_image));
    Modifie = true;
    EcrireTextes();
}

void frmEditEntree::ChargerCombo()
{
    const QTreeWidgetItem* ligne = LigneChoisie();
    if (ligne)
        m_ui->Combo1->Montrer(ligne->text(ColonneValeur), TextesDe(ligne->data(ColonneTitre, RoleTextes).toString()));
    else
        m_ui->Combo1->ViderListe();
    MettreLargeurCombo();
}

bool frmEditEntree::RefuserVide() const
{
    if (!ToutEstVide(Valeurs()))
        return false;
    AfficherMsg(LangMsg(u"msg65"_s, u"Tous les champs sont vides. Veuillez rentrer au moins une information"_s), MsgOk,
                QString());
    return true;
}

void frmEditEntree::EcrireTextes()
{
    for (int i = 1; Table && i <= qMin(NombreDeLignes(), Table->ColumnHeaders.Count()); ++i)
        Table->ColumnHeaders(i).SetTag(Textes(i));
}

/// Gives the field the focus with the value and the texts of the selected row, also when it has the focus already.
void frmEditEntree::DonnerFocusAuChamp()
{
    m_ui->Combo1->setFocus();
    ChargerCombo();
}

// ---- Keys ----

bool frmEditEntree::eventFilter(QObject* objet, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (objet == m_ui->Combo1)
            return ToucheDuChamp(static_cast<const QKeyEvent&>(*event));
        if (objet == m_ui->LV && ToucheDeListe(static_cast<const QKeyEvent&>(*event)))
            return true;
        break;
    case QEvent::KeyRelease:
        if (objet == m_ui->LV && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Delete)
            m_ui->Combo1->Remplacer(QString());
        break;
    case QEvent::MouseButtonRelease:
        if (objet == m_ui->LV->viewport())
            SourisRelachee();
        break;
    default:
        break;
    }
    return QDialog::eventFilter(objet, event);
}

bool frmEditEntree::ToucheDuChamp(const QKeyEvent& touche)
{
    const int cle = touche.key();
    if (!LigneChoisie()) {
        // Nothing typed here would reach a row. The keys that leave the field stay what they are.
        if (cle == Qt::Key_Tab || cle == Qt::Key_Backtab || cle == Qt::Key_Escape)
            return false;
        m_ui->Combo1->Montrer(QString());
        return true;
    }
    if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
        // A key held down runs through no rows, and does not press the button at their end.
        if (!touche.isAutoRepeat())
            ToucheEntree(Modificateurs(touche));
        return true;
    }
    if (Modificateurs(touche) != Qt::ControlModifier)
        return false;
    if (cle == Qt::Key_N || cle == Qt::Key_B) {
        Aller(cle == Qt::Key_N ? Sens::Suivante : Sens::Precedente);
        return true;
    }
    const int chiffre = ChiffreDe(touche);
    if (chiffre > 0)
        PrendreTexte(chiffre);
    return chiffre > 0;
}

void frmEditEntree::ToucheEntree(Qt::KeyboardModifiers modificateurs)
{
    const int rang = m_ui->LV->indexOfTopLevelItem(LigneChoisie());
    if (modificateurs == Qt::ControlModifier)
        Ajouter();
    else if (modificateurs == Qt::ShiftModifier && rang > 0)
        ChoisirLigne(rang - 1);
    else if (modificateurs == Qt::NoModifier && rang + 1 < NombreDeLignes())
        ChoisirLigne(rang + 1);
    else if (modificateurs == Qt::NoModifier) {
        m_ui->LV->clearSelection();
        m_ui->btAjouter->setFocus();
    }
}

/// Takes text `numero` (from 1) of the list, when there is one.
void frmEditEntree::PrendreTexte(int numero)
{
    const QStringList textes = m_ui->Combo1->Liste();
    if (numero <= textes.size())
        m_ui->Combo1->Remplacer(textes.at(numero - 1));
}

bool frmEditEntree::ToucheDeListe(const QKeyEvent& touche)
{
    const bool ouvre = touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter || touche.key() == Qt::Key_F2;
    if (ouvre && Modificateurs(touche) == Qt::NoModifier)
        DonnerFocusAuChamp();
    return ouvre && Modificateurs(touche) == Qt::NoModifier;
}

/// A click on a row leads to the field at once. One beside the rows leaves the last row selected.
void frmEditEntree::SourisRelachee()
{
    if (QTreeWidgetItem* courante = m_ui->LV->currentItem(); courante && !LigneChoisie())
        courante->setSelected(true);
    DonnerFocusAuChamp();
}

// ---- Buttons ----

/// True when a value holds "|": its row is selected then, and the user is told.
bool frmEditEntree::RefuserBarre()
{
    const int rang = ValeurInterdite(Valeurs());
    if (rang < 0)
        return false;
    ChoisirLigne(rang);
    AfficherMsg(LangMsg(u"msg68"_s, u"Le caractere  | est interdit, veuillez l'enlever"_s), MsgOk, QString());
    return true;
}

void frmEditEntree::Ajouter()
{
    if (RefuserBarre())
        return;
    if (!Charge)
        EnregistrerEntree();
    Valide = true;
    accept();
}

/// Writes the entry and shows its neighbour. At the ends of the table it only writes.
void frmEditEntree::Aller(Sens sens)
{
    const QPushButton* bouton = sens == Sens::Precedente ? m_ui->btPrecedent : m_ui->btSuivant;
    // The keys arrive even where the button is hidden.
    if (bouton->isHidden() || Charge)
        return;
    if (!RefuserBarre()) {
        EnregistrerEntree();
        MontrerEntree(IndexEntree + (sens == Sens::Precedente ? -1 : 1));
    }
    DonnerFocusAuChamp();
}

/// Goes on to the entry at `position`, if there is one that can be edited.
void frmEditEntree::MontrerEntree(int position)
{
    if (!Table || !Table->ListItems.Existe(IndexEntree) || !Table->ListItems.Existe(position) || !IndexPour(position))
        return;
    Table->ListItems(IndexEntree).SetSelected(false);
    IndexEntree = IndexPour(position);
    Table->ListItems(position).SetSelected(true);
    if (RendreVisible)
        RendreVisible(position);
    ChargerEntree();
}

void frmEditEntree::Memoriser()
{
    QTreeWidgetItem* ligne = LigneChoisie();
    const QString texte = m_ui->Combo1->Texte();
    const QString textes = ligne ? ligne->data(ColonneTitre, RoleTextes).toString() : QString();
    if (ligne && !TexteConnu(textes, texte)) {
        ligne->setData(ColonneTitre, RoleTextes, AvecTexte(textes, texte));
        MettreLargeurCombo();
        m_ui->Combo1->CaretALaFin();
    }
    m_ui->Combo1->setFocus();
}

void frmEditEntree::Oublier()
{
    int element = m_ui->Combo1->Choix();
    if (element < 0)
        element = static_cast<int>(m_ui->Combo1->Liste().lastIndexOf(m_ui->Combo1->Texte()));
    if (element >= 0) {
        m_ui->Combo1->Retirer(element);
        if (QTreeWidgetItem* ligne = LigneChoisie()) {
            ligne->setData(ColonneTitre, RoleTextes, m_ui->Combo1->Liste().join(u'|'));
            MettreLargeurCombo();
        }
    }
    m_ui->Combo1->CaretALaFin();
    m_ui->Combo1->setFocus();
}

// ---- Image ----

void frmEditEntree::ChangerImage()
{
    const QString choix = ChoisirImage(CheminImages, m_image);
    if (choix.isEmpty())
        return;
    if (choix == u"#") {
        m_image.clear();
        m_ui->Img->Vider();
        return;
    }
    m_image = choix;
    MontrerImage();
}

/// A file that is not there leaves the picture as it was, which is meant; one that is no picture shows none.
void frmEditEntree::MontrerImage()
{
    const QString fichier = FichierImage(CheminImages, m_image);
    if (!fichier.isEmpty() && !m_ui->Img->Charger(fichier))
        m_ui->Img->Vider();
}

// ---- Life ----

/// Every way to close comes here. The form only hides, so that the caller can read it.
void frmEditEntree::done(int resultat)
{
    Referme = true;
    QDialog::done(resultat);
}

void frmEditEntree::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    Valide = false;
    if (!LigneChoisie() && NombreDeLignes() > 0)
        ChoisirLigne(0);
    DonnerFocusAuChamp();
}
