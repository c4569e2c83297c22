#include "entries/frmEditEntree.h"

#include "base/AfficherMsg.h"
#include "base/Options.h"
#include "catalogue/table/MyLV.h"
#include "entries/SaisieDEntree.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "images/ChoisirImage.h"
#include "images/FichierImage.h"
#include "images/ImageRecue.h"
#include "kit/Icones.h"
#include "kit/ManqueDeMemoire.h"
#include "kit/PlaceDeFenetre.h"
#include "kit/UnitesEcran.h"
#include "ui_frmEditEntree.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QShowEvent>
#include <QSignalBlocker>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Units of 1/1440 inch.
constexpr int LargeurTitres = 1500;
constexpr int LargeurValeurs = 4500;
constexpr int LargeurComboSansListe = 3872;
constexpr int LargeurComboAvecListe = 3590;

constexpr int Hauteur = 460;
constexpr int CoteIcone = 16;

} // namespace

frmEditEntree::frmEditEntree(QWidget* parent)
    : QDialog(parent), DemanderImage(ChoisirImage), m_ui(std::make_unique<Ui::frmEditEntree>())
{
    m_ui->setupUi(this);
    m_ui->btplus->setIcon(Icone(u"addentree"_s));
    m_ui->btmoins->setIcon(Icone(u"delentree"_s));
    LangForm(*this);
    m_ui->LV->setHeaderLabels(
        {LangMsg(u"msgColonne"_s, u"Colonne"_s), LangMsg(u"msgNouvelleEntree"_s, u"Nouvelle Entrée"_s)});
    m_nomDuChamp = m_ui->Combo1->accessibleName();
    NommerChamp();
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
    m_ui->btplus->installEventFilter(this);
    m_ui->btmoins->installEventFilter(this);
    connect(m_ui->Combo1, &ChampDEntree::Change, this, &frmEditEntree::EcrireValeur);
    connect(m_ui->Combo1, &ChampDEntree::Entree, this, &frmEditEntree::ChargerCombo);
    connect(m_ui->LV, &QTreeWidget::itemSelectionChanged, this, &frmEditEntree::ChargerCombo);
    connect(m_ui->btplus, &QToolButton::clicked, this, &frmEditEntree::Memoriser);
    connect(m_ui->btmoins, &QToolButton::clicked, this, &frmEditEntree::Oublier);
    connect(m_ui->Img, &ZoneImage::Clic, this, &frmEditEntree::ChangerImage);
    connect(m_ui->Img, &ZoneImage::Recue, this, &frmEditEntree::PrendreRecue);
    connect(m_ui->btPrecedent, &QPushButton::clicked, this, [this] { Aller(Sens::Precedente); });
    connect(m_ui->btSuivant, &QPushButton::clicked, this, [this] { Aller(Sens::Suivante); });
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmEditEntree::Ajouter);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
}

/// The first size shows both columns whole, and Combo1 at the narrowest it can be: it grows with the form.
void frmEditEntree::MesurerControles()
{
    const int cadre = 2 * m_ui->LV->frameWidth();
    const int titres = qMax(PixelsDe(*this, LargeurTitres), m_ui->LV->header()->sectionSizeHint(0));
    // The column of the values fills what the one of the titles leaves.
    m_ui->LV->setMinimumWidth(titres + PixelsDe(*this, LargeurValeurs) + cadre);
    m_ui->LV->setColumnWidth(0, titres);
    for (QToolButton* bouton : {m_ui->btplus, m_ui->btmoins})
        bouton->setIconSize({CoteIcone, CoteIcone});
    MettreLargeurCombo();
    resize(sizeHint().width(), Hauteur);
    GarderLaPlace(*this, Options::PlaceDeLEditeur);
}

int16_t frmEditEntree::IndexPour(int position)
{
    return position > std::numeric_limits<int16_t>::max() ? int16_t{0} : static_cast<int16_t>(position);
}

void frmEditEntree::MettreCaptionAjouter(const QString& caption)
{
    // A caption that marks no letter for Alt marks its first one.
    m_ui->btAjouter->setText(caption.contains(u'&') ? caption : QString(u'&' + caption));
}

void frmEditEntree::CacherNavigation()
{
    m_ui->btPrecedent->hide();
    m_ui->btSuivant->hide();
}

// ---- Rows ----

void frmEditEntree::AjouterLigne(const QString& titre, const QString& valeur, const QString& textes)
{
    m_ui->LV->Ajouter(titre, valeur, textes);
    if (NombreDeLignes() == 1)
        m_ui->LV->Choisir(0);
}

void frmEditEntree::RemplirColonnes()
{
    for (int i = 1; Table && i <= Table->ColumnHeaders.Count(); ++i)
        AjouterLigne(Table->ColumnHeaders(i).Text(), QString(), Table->ColumnHeaders(i).Tag());
    m_depart = Contenu();
}

QStringList frmEditEntree::Contenu() const
{
    QStringList contenu = Valeurs();
    for (int ligne = 1; ligne <= NombreDeLignes(); ++ligne)
        contenu.append(Textes(ligne));
    return contenu << m_image;
}

int frmEditEntree::NombreDeLignes() const
{
    return m_ui->LV->Nombre();
}

QString frmEditEntree::Titre(int ligne) const
{
    return m_ui->LV->Titre(ligne - 1);
}

QString frmEditEntree::Valeur(int ligne) const
{
    return m_ui->LV->Valeur(ligne - 1);
}

QString frmEditEntree::Textes(int ligne) const
{
    return m_ui->LV->Textes(ligne - 1);
}

QStringList frmEditEntree::Valeurs() const
{
    QStringList valeurs;
    for (int ligne = 1; ligne <= NombreDeLignes(); ++ligne)
        valeurs.append(Valeur(ligne));
    return valeurs;
}

/// The field's text stands in the selected row as soon as it changes, so that nothing else need fetch it there.
void frmEditEntree::EcrireValeur(const QString& valeur)
{
    m_ui->LV->MettreValeur(m_ui->LV->Choisie(), valeur);
}

/// The width of Combo1 tells whether the row has a list: it is the narrower one then.
void frmEditEntree::MettreLargeurCombo()
{
    const bool aListe = !m_ui->LV->Textes(m_ui->LV->Choisie()).isEmpty();
    const int pleine = PixelsDe(*this, LargeurComboSansListe);
    const int largeur = aListe ? PixelsDe(*this, LargeurComboAvecListe) : pleine;
    m_ui->Combo1->setMinimumWidth(largeur);
    m_ui->PlaceDuChamp->setContentsMargins(0, 0, pleine - largeur, 0);
    layout()->activate();
}

/// The field is told as the column that it is about, and so are its parts.
void frmEditEntree::NommerChamp()
{
    const QString titre = m_ui->LV->Titre(m_ui->LV->Choisie());
    const QString nom = titre.isEmpty() ? m_nomDuChamp : titre;
    QLineEdit* ligne = m_ui->Combo1->lineEdit();
    if (ligne->accessibleName() == nom)
        return;
    for (QWidget* partie : std::initializer_list<QWidget*>{m_ui->Combo1, ligne, m_ui->Combo1->view()})
        partie->setAccessibleName(nom);
    // The focus stays where it is when Enter leads to the next row: without this nothing would be said.
    if (m_ui->Combo1->hasFocus()) {
        QAccessibleEvent evenement(ligne, QAccessible::Focus);
        QAccessible::updateAccessibility(&evenement);
    }
}

// ---- Entry and field ----

void frmEditEntree::ChargerEntree()
{
    if (!Table || !Table->ListItems.Existe(IndexEntree))
        return;
    const ListItemLu entree = Table->ListItems(IndexEntree);
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
    NommerChamp();
    MettreLargeurCombo();
    m_depart = Contenu();
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
    m_depart = Contenu();
    if (EntreeEcrite)
        EntreeEcrite();
}

void frmEditEntree::ChargerCombo()
{
    const int ligne = m_ui->LV->Choisie();
    if (ligne >= 0)
        m_ui->Combo1->Montrer(m_ui->LV->Valeur(ligne), TextesDe(m_ui->LV->Textes(ligne)));
    else
        m_ui->Combo1->ViderListe();
    NommerChamp();
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

// ---- Buttons ----

/// True when a value holds "|": its row is selected then, and the user is told.
bool frmEditEntree::RefuserBarre()
{
    const int rang = ValeurInterdite(Valeurs());
    if (rang < 0)
        return false;
    m_ui->LV->Choisir(rang);
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
    const int ligne = m_ui->LV->Choisie();
    const QString texte = m_ui->Combo1->Texte();
    const QString textes = m_ui->LV->Textes(ligne);
    if (ligne >= 0 && !TexteConnu(textes, texte)) {
        m_ui->LV->MettreTextes(ligne, AvecTexte(textes, texte));
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
        m_ui->LV->MettreTextes(m_ui->LV->Choisie(), m_ui->Combo1->Liste().join(u'|'));
        MettreLargeurCombo();
    }
    m_ui->Combo1->CaretALaFin();
    m_ui->Combo1->setFocus();
}

// ---- Image ----

void frmEditEntree::ChangerImage()
{
    const QString choix = DemanderImage(CheminImages, m_image);
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

void frmEditEntree::PrendreRecue(const ImageRecue& recue)
{
    const QString nom = AvecMemoire([&] { return PrendreImage(recue, CheminImages, this); }, QString());
    if (nom.isEmpty())
        return;
    m_image = nom;
    MontrerImage();
}

/// A file that is not there leaves the picture as it was, which is meant; one that is no picture shows none.
void frmEditEntree::MontrerImage()
{
    const QString fichier = FichierImage(CheminImages, m_image);
    if (!fichier.isEmpty())
        m_ui->Img->ChargerOuVider(fichier);
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
    if (m_ui->LV->Choisie() < 0)
        m_ui->LV->Choisir(0);
    DonnerFocusAuChamp();
}
