#include "search/frmRecherche.h"

#include "base/AfficherMsg.h"
#include "base/Options.h"
#include "catalogue/documents/FenetreDocument.h"
#include "catalogue/texte/TriDeTable.h"
#include "entries/mEditLV.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/ManqueDeMemoire.h"
#include "kit/PlaceDeFenetre.h"
#include "kit/UnitesEcran.h"
#include "output/ExporterCategorie.h"
#include "output/frmExport.h"
#include "output/modImprimerLV.h"
#include "search/ResultatsDeRecherche.h"
#include "ui_frmRecherche.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Units of 1/1440 inch.
constexpr double LargeurMin = 8715;
constexpr double HauteurMin = 3690;

constexpr qsizetype Tranche = qsizetype(4) << 20; // bytes between two events
constexpr qint64 Patience = 500;                  // ms, after which progress is shown
constexpr int SignesDInfobulle = 2000;            // more than a screen shows

bool EstEntree(const QKeyEvent& touche)
{
    return touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter;
}

} // namespace

frmRecherche::frmRecherche(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmRecherche>())
{
    m_ui->setupUi(this);
    m_ui->btRecherche->setIcon(Icone(u"rechercher"_s));
    m_ui->btOptions->setIcon(Icone(u"options"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_ui->Command1->setIcon(Icone(u"export"_s));
    m_ui->Command2->setIcon(Icone(u"print"_s));
    FaireLigneDEtat();
    GarderLaPlace(*this, Options::PlaceDeLaRecherche);
}

frmRecherche::~frmRecherche()
{
    // The view looks at the rows to its last moment.
    delete m_ui->ListView1;
}

void frmRecherche::FaireLigneDEtat()
{
    m_panneau = new QLabel(m_ui->StatusBar1);
    m_panneau->setObjectName(u"StatusBar1_1"_s);
    m_panneau->setTextFormat(Qt::PlainText);
    m_ui->StatusBar1->addWidget(m_panneau);
    m_avancement = new QProgressBar(m_ui->StatusBar1);
    m_avancement->setObjectName(u"Avancement"_s);
    m_ui->StatusBar1->addPermanentWidget(m_avancement);
    m_avancement->hide();
    m_ui->StatusBar1->setContentsMargins(6, 0, 6, 0);
}

void frmRecherche::SetDocument(FenetreDocument& fenetre)
{
    m_fenetre = &fenetre;
    QrtCourant = &fenetre.myqrt;
    DireCompte(QString());
    m_ui->Frame1->setTitle(LangMsg(u"msg96"_s, u"Recherche dans"_s).texte + u' ' + QrtCourant->CheminReel());
    m_resultats = std::make_unique<ResultatsDeRecherche>(*QrtCourant);
    ColonnesRecherche.assign(static_cast<size_t>(QrtCourant->ColCount()), true);
    m_ui->ListView1->Afficher(m_resultats->Table);
    Brancher();
    LangForm(*this);
    m_titre = m_ui->Frame1->title();
    m_ui->Frame1->setAccessibleName(m_titre);
    AjusterTextes();
}

void frmRecherche::Brancher()
{
    const auto brancher = [this](const QPushButton* bouton, void (frmRecherche::*action)()) {
        connect(bouton, &QPushButton::clicked, this, action);
    };
    brancher(m_ui->btRecherche, &frmRecherche::Chercher);
    brancher(m_ui->btOptions, &frmRecherche::ChoisirColonnes);
    brancher(m_ui->Command1, &frmRecherche::Exporter);
    brancher(m_ui->Command2, &frmRecherche::Imprimer);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->Text1, &QLineEdit::textChanged, this, [this] { m_ui->btRecherche->setDefault(true); });
    connect(m_ui->ListView1, &VueDesLignes::EnteteCliquee, this,
            [this](int colonne) { TrierParColonne(m_resultats->Table, colonne); });
    m_ui->ListView1->installEventFilter(this);
    m_ui->ListView1->viewport()->installEventFilter(this);
}

void frmRecherche::Lancer()
{
    exec();
    while (const std::function<void()> acte = std::exchange(m_acte, nullptr)) {
        acte();
        exec();
    }
}

/// Where it stood it comes back.
void frmRecherche::Cacher(std::function<void()> acte)
{
    m_acte = std::move(acte);
    const QPoint place = pos();
    hide();
    move(place);
}

// ---- the search

void frmRecherche::ChoisirColonnes()
{
    frmExport choix(this);
    choix.ServirDeChoix(LangMsg(u"msg85"_s, u"Options de recherche"_s).texte,
                        LangMsg(u"msg87"_s, u"Selectionnez dans quelles colonnes sera effectuée la recherche"_s).texte,
                        LangMsg(u"msg86"_s, u"Valider"_s).texte);
    const ColumnHeaders& colonnes = QrtCourant->MyLV->ColumnHeaders;
    for (int i = 1; i <= colonnes.Count(); ++i)
        choix.AjouterColonne(colonnes(i).Text(), ColonnesRecherche[static_cast<size_t>(i) - 1]);
    choix.exec();
    if (!choix.Valide)
        return;
    PorteeDeRecherche portee = PorteeDeRecherche::DeChoix(choix.Cochees());
    ToutesColonnes = portee.ToutesColonnes;
    ColonnesRecherche = std::move(portee.choisies);
}

void frmRecherche::Chercher()
{
    const QString texte = m_ui->Text1->text();
    if (texte.isEmpty()) {
        AfficherMsg(MessageDeRecherche(IssueDeRecherche::SansTexte), MsgOk, QString());
        m_ui->Text1->setFocus();
        return;
    }
    Arreter();
    m_resultats->Vider();
    DireCompte(QString());
    m_texte = texte;
    m_depuis.start();
    m_recherche = std::make_unique<Recherche>(QrtCourant->TmpFolder, QrtCourant->ColCount(), texte,
                                              PorteeDeRecherche{ToutesColonnes, ColonnesRecherche});
    Continuer();
}

/// Goes on for a moment. Between two of them the user may type, search for something else, or close the dialog.
void frmRecherche::Continuer()
{
    if (m_recherche->Avancer(Tranche)) {
        MontrerAvancement();
        m_battement.start(0, this);
        return;
    }
    Finir();
}

void frmRecherche::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_battement.timerId())
        Continuer();
    else
        QDialog::timerEvent(event);
}

void frmRecherche::MontrerAvancement()
{
    if (m_depuis.elapsed() < Patience)
        return;
    m_avancement->setValue(m_recherche->Pourcent());
    if (m_avancement->isVisible())
        return;
    m_avancement->setAccessibleName(LangMsg(u"msgAvancementRecherche"_s, u"Avancement de la recherche"_s));
    m_avancement->show();
    setCursor(Qt::BusyCursor);
}

void frmRecherche::Arreter()
{
    m_battement.stop();
    m_recherche.reset();
    m_avancement->hide();
    unsetCursor();
}

void frmRecherche::Finir()
{
    const IssueDeRecherche issue = m_recherche->Issue();
    const bool trouve = issue == IssueDeRecherche::Trouve;
    const bool pris = !trouve || AvecMemoire<bool>([this] { return m_resultats->Prendre(*m_recherche), true; }, false);
    Arreter();
    if (trouve && pris) {
        MontrerResultats();
        return;
    }
    if (!trouve)
        AfficherMsg(MessageDeRecherche(issue), MsgOk, QString());
    // Another text is typed in its place.
    m_ui->Text1->setFocus();
    m_ui->Text1->selectAll();
}

/// The button is the default no more, so that Enter reaches the list. Who has typed on in the meantime is left there.
void frmRecherche::MontrerResultats()
{
    MyLV& table = m_resultats->Table;
    DireCompte(TexteDuCompte(m_texte, table.ListItems.Count()));
    table.Selectionner(1, 1, true);
    if (m_ui->Text1->text() != m_texte)
        return;
    m_ui->btRecherche->setDefault(false);
    m_ui->ListView1->setFocus();
}

void frmRecherche::DireCompte(const QString& texte)
{
    m_compte = texte;
    m_panneau->setAccessibleName(texte);
    AjusterTextes();
}

// ---- the results

bool frmRecherche::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_ui->ListView1 && event->type() == QEvent::KeyPress)
        return ToucheDeListe(static_cast<const QKeyEvent&>(*event));
    const bool dessus = objet == m_ui->ListView1->viewport();
    if (dessus && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<const QMouseEvent&>(*event).button() == Qt::LeftButton) {
        Voir();
        return true;
    }
    if (dessus && event->type() == QEvent::ToolTip) {
        MontrerInfobulle(static_cast<const QHelpEvent&>(*event).pos());
        return true;
    }
    return QDialog::eventFilter(objet, event);
}

bool frmRecherche::ToucheDeListe(const QKeyEvent& touche)
{
    // While the search has the default button, Enter starts it.
    const bool entree = EstEntree(touche) && !m_ui->btRecherche->isDefault();
    if (!entree && touche.key() != Qt::Key_F2)
        return false;
    // Held on, it would go through whatever comes up.
    if (touche.isAutoRepeat())
        return true;
    if (touche.modifiers() & Qt::ShiftModifier)
        Voir();
    else
        Editer();
    return true;
}

/// What a row holds is text, whatever signs are in it.
void frmRecherche::MontrerInfobulle(const QPoint& place) const
{
    const VueDesLignes& vue = *m_ui->ListView1;
    const MyLV& table = m_resultats->Table;
    const int ligne = vue.LigneSous(place);
    if (!table.ListItems.Existe(ligne)) {
        QToolTip::hideText();
        return;
    }
    const QString texte = m_resultats->Infobulle(table.ListItems(ligne)).left(SignesDInfobulle);
    QToolTip::showText(vue.viewport()->mapToGlobal(place), u"<qt>%1</qt>"_s.arg(texte.toHtmlEscaped()), vue.viewport(),
                       vue.visualRect(vue.model()->index(ligne - 1, 0)));
}

/// Walks through the results, not through the table.
void frmRecherche::Voir()
{
    MyLV& resultats = m_resultats->Table;
    if (const ListItem resultat = resultats.SelectedItem())
        Cacher([this, &resultats, index = resultat.Index()] { VoirEntree(resultats, index, QrtCourant->TmpFolder); });
}

void frmRecherche::Editer()
{
    if (m_resultats->Table.ListItems.Count() == 0)
        return;
    Cacher([this] {
        MyLV& table = *QrtCourant->MyLV;
        m_resultats->ChoisirDans(table);
        // After an edit of many that is what the flag was before, and after a refusal no. It is meant.
        QrtCourant->EcraserIlFautSauver(EditerEntrees(*m_fenetre, true, false));
        m_resultats->Rafraichir(table);
    });
}

/// The whole category goes out, and not the results. It is meant.
void frmRecherche::Exporter()
{
    bool selectionUniquement = false;
    ExporterCategorie(*QrtCourant, selectionUniquement);
}

void frmRecherche::Imprimer()
{
    QrtCourant->EcraserIlFautSauver(ImprimerListe(m_resultats->Table, QrtCourant->TmpFolder,
                                                  QrtCourant->filename() + u" ("_s + m_ui->Text1->text() + u')'));
}

// ---- the window

/// Enter presses the button that has the focus, and the default one elsewhere.
void frmRecherche::keyPressEvent(QKeyEvent* event)
{
    const bool entree = EstEntree(*event);
    auto* bouton = qobject_cast<QPushButton*>(focusWidget());
    if (entree && bouton && !event->isAutoRepeat())
        bouton->click();
    else if (!entree || !event->isAutoRepeat())
        QDialog::keyPressEvent(event);
}

void frmRecherche::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    AjusterTextes();
}

void frmRecherche::showEvent(QShowEvent* event)
{
    TenirLaTaille();
    QDialog::showEvent(event);
}

void frmRecherche::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        TenirLaTaille();
}

/// Not smaller than it can be read, with large letters too.
void frmRecherche::TenirLaTaille()
{
    const QSize moindre(PixelsDe(*this, LargeurMin), PixelsDe(*this, HauteurMin));
    setMinimumSize(moindre.expandedTo(layout()->totalMinimumSize()));
    AjusterTextes();
}

/// A path, and a text that was looked for, may be of any length: their beginning and their end are shown.
void frmRecherche::AjusterTextes()
{
    const QFontMetrics mesures = fontMetrics();
    const int place = width() - 4 * mesures.height();
    m_ui->Frame1->setTitle(mesures.elidedText(m_titre, Qt::ElideMiddle, place).replace(u'&', u"&&"_s));
    m_panneau->setText(mesures.elidedText(m_compte, Qt::ElideMiddle, place));
}
