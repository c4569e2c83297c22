#include "frmDoublons.h"

#include "ModeleDeGroupes.h"
#include "VueDeGroupes.h"

#include <ZelvanePlugin.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

namespace {

constexpr qint64 EntreDeuxImages = 40; // ms
constexpr int PasDeLaBarre = 1000;

template<class Widget> Widget* Nommer(Widget* widget, const QString& nom)
{
    widget->setObjectName(nom);
    return widget;
}

QPushButton* FaireBouton(const QString& nom, const QString& texte, QWidget* parent)
{
    auto* bouton = Nommer(new QPushButton(texte, parent), nom);
    bouton->setAutoDefault(false);
    return bouton;
}

QLabel* FaireLibelle(const QString& texte, QWidget* ami, QWidget* parent)
{
    auto* libelle = new QLabel(texte, parent);
    libelle->setBuddy(ami);
    return libelle;
}

template<class Disposition> Disposition* SansMarges(Disposition* disposition)
{
    disposition->setContentsMargins(0, 0, 0, 0);
    return disposition;
}

} // namespace

frmDoublons::frmDoublons(DocumentATrier& document, QWidget* parent) : QDialog(parent), m_document(document)
{
    setObjectName(u"frmDoublons"_s);
    setWindowTitle(LangMsg(u"plugDoublonsTitre"_s, u"Doublons"_s));
    m_modele = new ModeleDeGroupes(
        document.Titres(),
        [this](int ligne) {
            QList<int> colonnes(m_document.Colonnes());
            std::generate(colonnes.begin(), colonnes.end(), [n = 0]() mutable { return ++n; });
            return m_document.Lire(colonnes, ligne, 1);
        },
        this);
    m_arbre = Nommer(new VueDeGroupes(this), u"Arbre"_s);
    m_arbre->setModel(m_modele);
    m_arbre->setAccessibleName(LangMsg(u"plugDoublonsArbre"_s, u"Groupes trouvés"_s));
    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(FaireQuestions());
    disposition->addWidget(FaireSuite());
    disposition->addWidget(m_arbre, 1);
    disposition->addWidget(FaireCoches());
    disposition->addWidget(FaireFin());
    const int lettre = fontMetrics().horizontalAdvance(u'0');
    for (int colonne = 0; colonne <= document.Colonnes(); ++colonne)
        m_arbre->setColumnWidth(colonne, lettre * (colonne == 0 ? 28 : 22));
    m_arbre->setMinimumHeight(fontMetrics().lineSpacing() * 4);
    resize(lettre * 90, fontMetrics().lineSpacing() * 32);
    Brancher();
    m_colonnes->setFocus();
    MettreAJour();
}

frmDoublons::~frmDoublons() = default;

QWidget* frmDoublons::FaireQuestions()
{
    m_questions = new QWidget(this);
    m_colonnes = Nommer(new QListWidget(m_questions), u"Colonnes"_s);
    const QStringList titres = m_document.Titres();
    for (qsizetype i = 0; i < titres.size(); ++i) {
        auto* ligne = new QListWidgetItem(titres[i], m_colonnes);
        ligne->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        // To whom an entry is lent is not what it is.
        ligne->setCheckState(i + 1 == m_document.ColonnePret() ? Qt::Unchecked : Qt::Checked);
    }
    m_colonnes->setCurrentRow(0);
    m_colonnes->setFixedHeight(fontMetrics().lineSpacing() * 4);
    auto* egales = Nommer(new QRadioButton(LangMsg(u"plugDoublonsEgales"_s, u"É&gales"_s), m_questions), u"Egales"_s);
    egales->setChecked(true);
    egales->setToolTip(LangMsg(u"plugDoublonsEgalesAide"_s, u"Le même texte dans chaque colonne cochée"_s));
    m_presque =
        Nommer(new QRadioButton(LangMsg(u"plugDoublonsPresque"_s, u"&Presque égales"_s), m_questions), u"Presque"_s);
    m_presque->setToolTip(LangMsg(
        u"plugDoublonsPresqueAide"_s,
        u"Sans égard aux majuscules, aux accents, à la ponctuation, à l'article du début et à l'ordre des mots, "
        "et à une ou deux fautes de frappe près"_s));
    m_vides = Nommer(new QComboBox(m_questions), u"Vides"_s);
    m_vides->addItem(LangMsg(u"plugDoublonsVides0"_s, u"sont égales entre elles"_s), int(Vides::CommeLesAutres));
    m_vides->addItem(LangMsg(u"plugDoublonsVides1"_s, u"toutes vides : entrée ignorée"_s), int(Vides::SaufToutes));
    m_vides->addItem(LangMsg(u"plugDoublonsVides2"_s, u"une seule vide : entrée ignorée"_s), int(Vides::SaufUne));
    m_vides->setCurrentIndex(1);
    m_chercher =
        Nommer(new QPushButton(LangMsg(u"plugDoublonsChercher"_s, u"C&hercher"_s), m_questions), u"Chercher"_s);
    m_chercher->setDefault(true);

    auto* grille = SansMarges(new QGridLayout(m_questions));
    grille->addWidget(FaireLibelle(LangMsg(u"plugDoublonsColonnes"_s, u"&Colonnes à comparer :"_s), m_colonnes, this),
                      0, 0);
    grille->addWidget(m_colonnes, 1, 0, 3, 1);
    auto* mesure = new QHBoxLayout;
    mesure->addWidget(egales);
    mesure->addWidget(m_presque, 1);
    grille->addLayout(mesure, 1, 1, 1, 2);
    grille->addWidget(FaireLibelle(LangMsg(u"plugDoublonsVides"_s, u"Cellules &vides :"_s), m_vides, this), 2, 1);
    grille->addWidget(m_vides, 2, 2);
    grille->addWidget(m_chercher, 3, 1, 1, 2, Qt::AlignRight);
    grille->setColumnStretch(0, 1);
    return m_questions;
}

QWidget* frmDoublons::FaireSuite()
{
    m_suite = new QStackedWidget(this);
    m_resultat = Nommer(new QLabel(m_suite), u"Resultat"_s);
    m_suite->addWidget(m_resultat);
    auto* travail = new QWidget(m_suite);
    m_barre = Nommer(new QProgressBar(travail), u"Barre"_s);
    m_barre->setRange(0, PasDeLaBarre);
    m_barre->setAccessibleName(LangMsg(u"plugDoublonsAvancement"_s, u"Avancement"_s));
    m_annuler = FaireBouton(u"Annuler"_s, LangMsg(u"plugDoublonsAnnuler"_s, u"&Annuler"_s), travail);
    auto* rang = SansMarges(new QHBoxLayout(travail));
    rang->addWidget(m_barre, 1);
    rang->addWidget(m_annuler);
    m_suite->addWidget(travail);
    m_suite->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return m_suite;
}

QWidget* frmDoublons::FaireCoches()
{
    auto* cadre = new QWidget(this);
    m_saufPremier =
        FaireBouton(u"SaufPremier"_s, LangMsg(u"plugDoublonsSaufPremier"_s, u"Tout cocher sauf le p&remier"_s), cadre);
    m_saufComplet = FaireBouton(u"SaufComplet"_s,
                                LangMsg(u"plugDoublonsSaufComplet"_s, u"Tout cocher sauf le p&lus complet"_s), cadre);
    const QString aide = LangMsg(u"plugDoublonsSaufAide"_s,
                                 u"Dans chaque groupe. Une entrée prêtée n'est pas cochée : cochez-la vous-même."_s);
    m_saufPremier->setToolTip(aide);
    m_saufComplet->setToolTip(aide);
    m_decocher = FaireBouton(u"Decocher"_s, LangMsg(u"plugDoublonsDecocher"_s, u"T&out décocher"_s), cadre);
    auto* rang = SansMarges(new QHBoxLayout(cadre));
    rang->addWidget(m_saufPremier);
    rang->addWidget(m_saufComplet);
    rang->addWidget(m_decocher);
    rang->addStretch(1);
    return cadre;
}

QWidget* frmDoublons::FaireFin()
{
    auto* cadre = new QWidget(this);
    m_compte = Nommer(new QLabel(cadre), u"Compte"_s);
    m_supprimer =
        FaireBouton(u"Supprimer"_s, LangMsg(u"plugDoublonsSupprimer"_s, u"&Supprimer les entrées cochées"_s), cadre);
    m_fermer = FaireBouton(u"Fermer"_s, LangMsg(u"plugDoublonsFermer"_s, u"&Fermer"_s), cadre);
    auto* rang = SansMarges(new QHBoxLayout(cadre));
    rang->addWidget(m_compte, 1);
    rang->addWidget(m_supprimer);
    rang->addWidget(m_fermer);
    return cadre;
}

void frmDoublons::Brancher()
{
    const auto brancher = [this](const QPushButton* bouton, auto&& action) {
        connect(bouton, &QPushButton::clicked, this, std::forward<decltype(action)>(action));
    };
    brancher(m_chercher, [this] { Chercher(); });
    brancher(m_annuler, [this] { m_abandon = true; });
    brancher(m_saufPremier, [this] { m_modele->CocherSauf(Groupes::Gardee::Premiere); });
    brancher(m_saufComplet, [this] { m_modele->CocherSauf(Groupes::Gardee::Complete); });
    brancher(m_decocher, [this] { m_modele->ToutDecocher(); });
    brancher(m_supprimer, [this] { Supprimer(); });
    brancher(m_fermer, [this] { reject(); });
    connect(m_colonnes, &QListWidget::itemChanged, this, [this] { MettreAJour(); });
    connect(m_modele, &ModeleDeGroupes::CochesChangees, this, [this] { MettreAJour(); });
}

void frmDoublons::reject()
{
    if (m_occupe)
        m_abandon = true;
    else
        QDialog::reject();
}

bool frmDoublons::Avancer(double fait, double total)
{
    if (m_depuis.elapsed() >= EntreDeuxImages) {
        m_barre->setValue(static_cast<int>(fait / total * PasDeLaBarre));
        // Clicks and keys too: all but the button to give up is disabled, and the dialog blocks the other windows.
        QCoreApplication::processEvents();
        m_depuis.restart();
    }
    return !m_abandon;
}

Demande frmDoublons::DemandeDuChoix() const
{
    Demande demande;
    for (int i = 0; i < m_colonnes->count(); ++i) {
        if (m_colonnes->item(i)->checkState() == Qt::Checked)
            demande.colonnes.append(i + 1);
    }
    demande.mesure = m_presque->isChecked() ? Mesure::PresqueEgales : Mesure::Egales;
    demande.vides = static_cast<Vides>(m_vides->currentData().toInt());
    demande.colonnePret = m_document.ColonnePret();
    return demande;
}

void frmDoublons::Chercher()
{
    m_modele->Montrer({});
    Occuper(true);
    const std::optional<Groupes> groupes = ChercherDoublons(m_document, DemandeDuChoix(), *this);
    Occuper(false);
    if (groupes) {
        Montrer(*groupes);
    } else {
        m_resultat->setText(LangMsg(u"plugDoublonsAbandon"_s, u"La recherche a été abandonnée."_s));
        m_chercher->setFocus();
    }
}

void frmDoublons::Montrer(Groupes groupes)
{
    const int nombre = groupes.Count();
    m_resultat->setText(
        nombre == 0
            ? LangMsg(u"plugDoublonsAucun"_s, u"Aucun doublon"_s)
            : LangMsg(u"plugDoublonsTrouves"_s, u"Groupes : %1, entrées : %2"_s).arg(nombre).arg(groupes.Entrees()));
    m_modele->Montrer(std::move(groupes));
    if (nombre == 0) {
        m_chercher->setFocus();
        return;
    }
    m_arbre->setCurrentIndex(m_modele->index(0, 0));
    m_arbre->setFocus();
}

void frmDoublons::Supprimer()
{
    if (!Confirmer(m_modele->LesGroupes()))
        return;
    const std::vector<int> lignes = m_modele->LesGroupes().LignesCochees();
    m_document.Supprimer(QList<int>(lignes.begin(), lignes.end()));
    Groupes groupes = m_modele->LesGroupes();
    groupes.RetirerCochees();
    Montrer(std::move(groupes));
}

bool frmDoublons::Confirmer(const Groupes& groupes)
{
    QStringList texte{
        LangMsg(u"plugDoublonsConfirmer"_s, u"Supprimer les entrées cochées (%1) ?"_s).arg(groupes.NbCoches())};
    if (const int pretees = groupes.NbPreteesCochees())
        texte << LangMsg(u"plugDoublonsPretees"_s, u"Entrées prêtées parmi elles : %1."_s).arg(pretees);
    if (const int entiers = groupes.GroupesEntiers())
        texte << LangMsg(u"plugDoublonsEntiers"_s, u"Groupes dont il ne restera rien : %1."_s).arg(entiers);
    QMessageBox question(QMessageBox::Question, windowTitle(), texte.join(u"\n\n"_s), QMessageBox::NoButton, this);
    question.setObjectName(u"Confirmer"_s);
    const auto* oui = question.addButton(LangMsg(u"plugDoublonsOui"_s, u"&Supprimer"_s), QMessageBox::DestructiveRole);
    auto* non = question.addButton(LangMsg(u"plugDoublonsNon"_s, u"&Annuler"_s), QMessageBox::RejectRole);
    question.setDefaultButton(non);
    question.setEscapeButton(non);
    question.exec();
    return question.clickedButton() == oui;
}

void frmDoublons::MettreAJour()
{
    const Groupes& groupes = m_modele->LesGroupes();
    m_questions->setEnabled(!m_occupe);
    m_chercher->setEnabled(!DemandeDuChoix().colonnes.isEmpty());
    for (QWidget* widget :
         {static_cast<QWidget*>(m_arbre), static_cast<QWidget*>(m_saufPremier), static_cast<QWidget*>(m_saufComplet)})
        widget->setEnabled(!m_occupe && groupes.Count() > 0);
    m_decocher->setEnabled(!m_occupe && groupes.NbCoches() > 0);
    m_supprimer->setEnabled(!m_occupe && groupes.NbCoches() > 0);
    m_fermer->setEnabled(!m_occupe);
    m_compte->setText(
        LangMsg(u"plugDoublonsCompte"_s, u"Cochées : %1 sur %2"_s).arg(groupes.NbCoches()).arg(groupes.Entrees()));
}

void frmDoublons::Occuper(bool occupe)
{
    m_occupe = occupe;
    m_abandon = false;
    m_depuis.start();
    m_barre->setValue(0);
    m_suite->setCurrentIndex(occupe ? 1 : 0);
    MettreAJour();
    if (occupe)
        m_annuler->setFocus();
}
