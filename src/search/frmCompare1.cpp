#include "search/frmCompare1.h"

#include "base/AfficherMsg.h"
#include "base/DialogueFichier.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/texte/TriDeTable.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/UnitesEcran.h"
#include "output/modImprimerLV.h"
#include "platform/Retenue.h"
#include "search/Comparaison.h"
#include "search/frmCompare2.h"
#include "ui_frmCompare1.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int LargeurAuMoins = 7620; // units of 1/1440 inch
constexpr int HauteurAuMoins = 4000;
constexpr int PasDeComparaison = 1 << 14; // entries between two looks at the progress bar

/// Plain texts, in no language but this one. It is meant.
void Dire(const QString& texte)
{
    AfficherMsg(Message(texte), MsgOk, QString());
}

std::optional<QString> RefusDesChemins(const std::array<QString, 2>& chemins)
{
    if (chemins[0].isEmpty() || chemins[1].isEmpty())
        return u"Il faut selectionner deux categories"_s;
    if (chemins[0] == chemins[1])
        return u"Il faut selectionner deux categories differentes"_s;
    return std::nullopt;
}

/// The pointer says that the program is busy, unless the user has his turn.
class Sablier
{
public:
    Sablier() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Sablier() { QGuiApplication::restoreOverrideCursor(); }
    Sablier(const Sablier&) = delete;
    Sablier& operator=(const Sablier&) = delete;
};

bool EstEntree(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool EstSuppr(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Delete &&
           !(event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

// ---- the window

frmCompare1::frmCompare1(Cadre& cadre, QWidget* parent)
    : QDialog(parent), m_cadre(cadre), m_ui(std::make_unique<Ui::frmCompare1>())
{
    m_ui->setupUi(this);
    for (QPushButton* parcourir : {m_ui->parcourir_0, m_ui->parcourir_1})
        parcourir->setIcon(Icone(u"parcourir"_s));
    m_ui->btInverser->setIcon(Icone(u"inverser"_s));
    m_ui->btComparer->setIcon(Icone(u"ok"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    m_ui->imprimer->setIcon(Icone(u"print"_s));
    QSizePolicy place = m_ui->progress->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    m_ui->progress->setSizePolicy(place);
    m_ui->progress->hide();
    m_ui->ListView1->Afficher(m_seulesDeA);
    m_ui->ListView2->Afficher(m_seulesDeB);
    LangForm(*this);
    m_titre = windowTitle();
    RemplirListes();
    Brancher();
    setMinimumSize(
        QSize(PixelsDe(*this, LargeurAuMoins), PixelsDe(*this, HauteurAuMoins)).expandedTo(minimumSizeHint()));
}

frmCompare1::~frmCompare1()
{
    // The views look at the tables to their last moment.
    delete m_ui->ListView1;
    delete m_ui->ListView2;
}

void frmCompare1::Montrer(Cadre& cadre, QWidget& parent, Qt::WindowModality modalite)
{
    // One that is closed and still at work ends by itself.
    const auto forms = parent.findChildren<frmCompare1*>();
    const auto ouverte = std::ranges::find_if(forms, [](const frmCompare1* form) { return form->isVisible(); });
    frmCompare1* form = ouverte == forms.end() ? new frmCompare1(cadre, &parent) : *ouverte;
    if (ouverte == forms.end())
        form->setWindowModality(modalite);
    form->show();
    form->MettreDevant();
}

void frmCompare1::Brancher()
{
    const auto brancher = [this](const QPushButton* bouton, auto action) {
        connect(bouton, &QPushButton::clicked, this, [this, action] { (this->*action)(); });
    };
    // Empty it would look like a field to type in.
    connect(m_ui->progress, &QProgressBar::valueChanged, this,
            [this](int fait) { m_ui->progress->setVisible(fait > 0); });
    connect(m_ui->parcourir_0, &QPushButton::clicked, this, [this] { ChercherFichier(0); });
    connect(m_ui->parcourir_1, &QPushButton::clicked, this, [this] { ChercherFichier(1); });
    brancher(m_ui->btInverser, &frmCompare1::Inverser);
    brancher(m_ui->imprimer, &frmCompare1::Imprimer);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->btComparer, &QPushButton::clicked, this, [this] { Retenue::Apres(this, [this] { Comparer(); }); });
    connect(this, &QDialog::finished, this, [this] {
        if (!m_enCours)
            deleteLater();
    });

    m_ui->ListView1->horizontalHeader()->setSectionsClickable(false); // no sort comes of it
    connect(m_ui->ListView2, &VueDesLignes::EnteteCliquee, this,
            [this](int colonne) { TrierParColonne(m_seulesDeB, colonne); });
    m_ui->ListView1->installEventFilter(this);
    m_ui->ListView2->installEventFilter(this);
}

QComboBox& frmCompare1::Liste(int liste) const
{
    return liste == 0 ? *m_ui->CategoriesList_0 : *m_ui->CategoriesList_1;
}

/// A document that was never saved is an empty line.
void frmCompare1::RemplirListes()
{
    QStringList chemins;
    for (const FenetreDocument* fenetre : m_cadre.Documents())
        chemins.append(fenetre->myqrt.CheminReel());
    for (const int liste : {0, 1}) {
        const QLabel& libelle = liste == 0 ? *m_ui->Label1_0 : *m_ui->Label1_1;
        Liste(liste).lineEdit()->setAccessibleName(libelle.text().remove(u'&'));
        // What is typed stands as it is typed.
        Liste(liste).setCompleter(nullptr);
        Liste(liste).addItems(chemins);
        Liste(liste).setCurrentIndex(-1); // its text goes with it
    }
}

void frmCompare1::MettreDevant()
{
    raise();
    activateWindow();
}

// ---- what the buttons and keys do

void frmCompare1::ChercherFichier(int liste)
{
    DemandeFichier demande;
    demande.titre = LangMsg(u"msgRechercheFichier"_s, u"Recherche fichier %1"_s).texte.arg(liste);
    demande.types = {{LangMsg(u"msgFichierQrt"_s, u"Fichier QRT"_s), u"*.qrt"_s}};
    const std::optional<ReponseFichier> reponse = DialogueOuvrir(demande);
    if (reponse && !reponse->fichiers.isEmpty())
        Liste(liste).setEditText(reponse->fichiers.first());
}

void frmCompare1::Inverser()
{
    const QString premier = Liste(0).currentText();
    Liste(0).setEditText(Liste(1).currentText());
    Liste(1).setEditText(premier);
}

void frmCompare1::Imprimer()
{
    if (m_seulesDeB.ListItems.Count() == 0) {
        Dire(u"Il n'y a rien à imprimer"_s);
        return;
    }
    // The folder stands for none: rows have no pictures.
    const Message titre = LangMsg(u"msgNonPresentes"_s, u"entrées non présentes dans %1"_s);
    ImprimerListe(m_seulesDeB, u"c:\\"_s, titre.Remplacer(u"%1"_s, Liste(0).currentText()));
}

void frmCompare1::MarquerTri()
{
    for (int i = 1; i <= m_seulesDeB.ColumnHeaders.Count(); ++i) {
        const bool triee = m_seulesDeB.Sorted() && m_seulesDeB.SortKey() == i - 1;
        m_seulesDeB.ColumnHeaders(i).SetIcon(triee ? MarqueDeTri(m_seulesDeB.SortOrder() == 1) : QString());
    }
}

void frmCompare1::SupprimerChoisies()
{
    std::vector<int> choisies;
    for (int i = m_seulesDeB.ListItems.Count(); i >= 1; --i) {
        if (m_seulesDeB.EstSelectionnee(i))
            choisies.push_back(i);
    }
    m_seulesDeB.ListItems.Retirer(choisies);
}

bool frmCompare1::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& touche = static_cast<const QKeyEvent&>(*event);
        // Or the button would be pressed, and take away a list that was cleaned.
        if (EstEntree(touche))
            return true;
        if (objet == m_ui->ListView2 && EstSuppr(touche)) {
            SupprimerChoisies();
            return true;
        }
    }
    return QDialog::eventFilter(objet, event);
}

// ---- the comparison

/// The user may close this window meanwhile: it goes once the comparison has ended.
void frmCompare1::Comparer()
{
    if (m_enCours)
        return;
    {
        const QScopedValueRollback garde(m_enCours, true);
        ComparerLesChoisies();
    }
    if (!isVisible())
        deleteLater();
}

void frmCompare1::ComparerLesChoisies()
{
    const Chemins chemins{Liste(0).currentText(), Liste(1).currentText()};
    if (const std::optional<QString> refus = RefusDesChemins(chemins)) {
        Dire(*refus);
        return;
    }
    OuvrirAuBesoin(0);
    OuvrirAuBesoin(1);
    if (!LaisserVenir())
        return;
    const Choisies choisies = ChercherChoisies(chemins);
    if (!SontOuvertes(choisies))
        return;
    MettreDevant();
    const MyLV& a = choisies[0].fenetre->myqrt.Table;
    const MyLV& b = choisies[1].fenetre->myqrt.Table;
    m_ui->progress->setMaximum(a.ListItems.Count() + b.ListItems.Count() + 1);
    if (const Message refus = RefusDeComparer(a, b); !refus.texte.isEmpty()) {
        Dire(refus);
        return;
    }
    const auto colonnes = DemanderColonnes(a, b);
    if (!colonnes || !SontOuvertes(choisies))
        return;
    MettreDevant();
    ComparerTables(choisies, *colonnes);
}

/// What is no line of the list was typed or looked for. Whether it opens is seen later: its window is there then.
void frmCompare1::OuvrirAuBesoin(int liste)
{
    const QString chemin = Liste(liste).currentText();
    if (Liste(liste).findText(chemin, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
        OuvrirFichier(m_cadre, chemin, TypeQrt2, false);
}

/// The documents of the two paths, each the last one that has it. Paths are compared as they are spelled.
frmCompare1::Choisies frmCompare1::ChercherChoisies(const Chemins& chemins) const
{
    Choisies choisies;
    for (size_t i = 0; i < choisies.size(); ++i) {
        Choisie& choisie = choisies[i];
        choisie.chemin = chemins[i];
        for (FenetreDocument* fenetre : m_cadre.Documents()) {
            if (fenetre->myqrt.CheminReel() == choisie.chemin) {
                choisie.fenetre = fenetre;
                choisie.vie = fenetre->myqrt.Table.Vie();
            }
        }
    }
    return choisies;
}

/// A window that was closed is no document of the frame any more, and its table goes a moment later.
bool frmCompare1::SontOuvertes(const Choisies& choisies) const
{
    const auto fenetres = m_cadre.Documents();
    return std::ranges::all_of(choisies, [&fenetres](const Choisie& choisie) {
        return choisie.fenetre && !choisie.vie.expired() &&
               std::ranges::find(fenetres, choisie.fenetre) != fenetres.end();
    });
}

std::optional<std::array<int, 2>> frmCompare1::DemanderColonnes(const MyLV& a, const MyLV& b)
{
    frmCompare2 form(a.ColumnHeaders, b.ColumnHeaders, this);
    form.exec();
    return form.Valide ? std::optional(std::array{form.ColonneA(), form.ColonneB()}) : std::nullopt;
}

void frmCompare1::ComparerTables(const Choisies& choisies, std::array<int, 2> colonnes)
{
    MyLV& a = choisies[0].fenetre->myqrt.Table;
    MyLV& b = choisies[1].fenetre->myqrt.Table;
    std::optional<Sablier> sablier(std::in_place);
    Comparaison comparaison(a, colonnes[0], b, colonnes[1]);
    CopierColonnes(m_seulesDeB, b);
    MarquerTri();
    CopierColonnes(m_seulesDeA, a);
    sablier.reset();

    if (Parcourir(comparaison, choisies)) {
        sablier.emplace();
        comparaison.Remplir(m_seulesDeA, m_seulesDeB);
        sablier.reset();
        Conclure(choisies);
    } else {
        // The lists are empty now: those of the last comparison are no more.
        setWindowTitle(m_titre);
    }
    m_ui->progress->setValue(0);
    sablier.emplace(); // the tables are sorted back
}

/// False when it came to no end: this window or one of the documents was closed, or a table changed.
bool frmCompare1::Parcourir(Comparaison& comparaison, const Choisies& choisies)
{
    for (auto etape = comparaison.Ou(), suite = etape; suite != Comparaison::Etape::Finie; etape = suite) {
        if (!LaisserVenir() || !SontOuvertes(choisies) || comparaison.Ou() == Comparaison::Etape::Rompue)
            return false;
        const Sablier sablier;
        while (suite == etape) {
            suite = comparaison.Avancer(PasDeComparaison);
            m_ui->progress->setValue(comparaison.Fait());
        }
    }
    return true;
}

void frmCompare1::Conclure(const Choisies& choisies)
{
    const int deA = m_seulesDeA.ListItems.Count();
    const int deB = m_seulesDeB.ListItems.Count();
    if (const QString verdict = Verdict(deA, deB, choisies[0].chemin, choisies[1].chemin); !verdict.isEmpty())
        Dire(verdict);
    setWindowTitle(TitreDesResultats(deA, deB));
}

/// Lets the user have his turn. False when he closed this window.
bool frmCompare1::LaisserVenir() const
{
    QCoreApplication::processEvents();
    return isVisible();
}
