#include "entries/frmAddCategorie2.h"

#include "base/AfficherMsg.h"
#include "entries/ModelesDeCategorie.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/ValideurDeLigne.h"
#include "ui_frmAddCategorie2.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int AirDeLigne = 8; // lines that touch each other are hard to tell apart, and to hit

} // namespace

frmAddCategorie2::frmAddCategorie2(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmAddCategorie2>())
{
    m_ui->setupUi(this);
    m_ui->dependantcol->setEnabled(false);
    BrancherBoutons();
    BrancherTouches();
    RemplirModeles();

    // Queued: the field is in the middle of taking the edit back.
    auto* valideur = new ValideurDeLigne(this, u"|"_s);
    m_ui->Text1->setValidator(valideur);
    connect(
        valideur, &ValideurDeLigne::Refuse, this,
        [] {
            AfficherMsg(LangMsg(u"msg68"_s, u"Le caractere  | est interdit, veuillez l'enlever"_s), MsgOk, QString());
        },
        Qt::QueuedConnection);
    connect(m_ui->Text1, &QLineEdit::textChanged, this, &frmAddCategorie2::Text1Change);
    connect(m_ui->List1, &QListWidget::itemSelectionChanged, this, [this] {
        Colonnes.Choisir(m_ui->List1->selectedItems().isEmpty() ? 0 : m_ui->List1->currentRow() + 1);
        Montrer();
    });
    connect(m_ui->List1, &QListWidget::itemDoubleClicked, this, &frmAddCategorie2::AllerAuTitre);
    connect(m_ui->cbDependant, &QCheckBox::toggled, this, [this](bool cochee) {
        Colonnes.Dependant = cochee;
        m_ui->dependantcol->setEnabled(cochee);
    });
    connect(m_ui->dependantcol, &QComboBox::activated, this,
            [this](int ligne) { Colonnes.ChoisirDependante(ligne + 1); });
    Montrer();
    m_ui->Text1->setFocus();
    LangForm(*this);
    // The field has no label: what it is for stands in it while it is empty.
    m_ui->Text1->setPlaceholderText(m_ui->Text1->toolTip());
}

frmAddCategorie2::~frmAddCategorie2() = default;

void frmAddCategorie2::BrancherBoutons()
{
    m_ui->btAddCol->setIcon(Icone(u"addentree"_s));
    m_ui->btSupprCol->setIcon(Icone(u"delentree"_s));
    m_ui->btUp->setIcon(Icone(u"up"_s));
    m_ui->btDown->setIcon(Icone(u"down"_s));
    m_ui->btAjouter->setIcon(Icone(u"ok"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));

    connect(m_ui->btAddCol, &QToolButton::clicked, this, &frmAddCategorie2::Ajouter);
    connect(m_ui->btSupprCol, &QToolButton::clicked, this, &frmAddCategorie2::Supprimer);
    connect(m_ui->btUp, &QToolButton::clicked, this, [this] { Deplacer(&ColonnesDeCategorie::Monter); });
    connect(m_ui->btDown, &QToolButton::clicked, this, [this] { Deplacer(&ColonnesDeCategorie::Descendre); });
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmAddCategorie2::Valider);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
}

void frmAddCategorie2::BrancherTouches()
{
    m_ui->Text1->installEventFilter(this);
    // The frame of the default button tells where Enter acts: in the title's field it goes on to the next column.
    connect(qApp, &QApplication::focusChanged, m_ui->btAjouter, [creer = m_ui->btAjouter, titre = m_ui->Text1] {
        creer->setDefault(titre->window()->focusWidget() != titre);
    });
    const auto touche = [](QWidget* zone, const QKeySequence& cle, QAbstractButton* bouton, Qt::ShortcutContext ou) {
        QObject::connect(new QShortcut(cle, zone, nullptr, nullptr, ou), &QShortcut::activated, bouton,
                         [bouton] { bouton->click(); });
    };
    touche(m_ui->List1, Qt::Key_Delete, m_ui->btSupprCol, Qt::WidgetShortcut);
    // In these two alone: the drop-down list opens with Alt and an arrow.
    for (QWidget* zone : {static_cast<QWidget*>(m_ui->List1), static_cast<QWidget*>(m_ui->Text1)}) {
        touche(zone, Qt::ALT | Qt::Key_Up, m_ui->btUp, Qt::WidgetShortcut);
        touche(zone, Qt::ALT | Qt::Key_Down, m_ui->btDown, Qt::WidgetShortcut);
    }
    for (const Qt::Key entree : {Qt::Key_Return, Qt::Key_Enter})
        touche(this, Qt::CTRL | entree, m_ui->btAjouter, Qt::WindowShortcut);
}

void frmAddCategorie2::RemplirModeles()
{
    auto* menu = new QMenu(m_ui->btModele);
    for (const ModeleDeCategorie& modele : ModelesDeCategorie())
        connect(menu->addAction(modele.nom), &QAction::triggered, this, [this, modele] { PrendreModele(modele); });
    m_ui->btModele->setMenu(menu);
}

// ---- what is on show

/// Brings the controls in step with the columns.
void frmAddCategorie2::Montrer()
{
    const QSignalBlocker liste(m_ui->List1);
    while (m_ui->List1->count() > Colonnes.Nombre()) {
        delete m_ui->List1->takeItem(m_ui->List1->count() - 1);
        m_ui->dependantcol->removeItem(m_ui->dependantcol->count() - 1);
    }
    while (m_ui->List1->count() < Colonnes.Nombre()) {
        auto* ligne = new QListWidgetItem(m_ui->List1);
        ligne->setSizeHint({0, m_ui->List1->fontMetrics().height() + AirDeLigne});
        m_ui->dependantcol->addItem(QString());
    }
    for (int position = 1; position <= Colonnes.Nombre(); ++position)
        MontrerTitre(position);
    m_ui->dependantcol->setCurrentIndex(Colonnes.DependanteChoisie() - 1);
    m_ui->List1->setCurrentRow(Colonnes.Choisie() - 1);

    m_ui->Text1->setText(Colonnes.TitreChoisi());
    m_ui->Text1->setReadOnly(Colonnes.TitreFige());
    // With all columns gone the field is open, though what is typed there goes nowhere: that is meant.
    m_ui->Text1->setEnabled(Colonnes.Choisie() > 0 || Colonnes.Nombre() == 0);
    AccorderBoutons();
}

void frmAddCategorie2::MontrerTitre(int position)
{
    const QString& titre = Colonnes.Titres().at(position - 1);
    m_ui->List1->item(position - 1)->setText(titre);
    m_ui->dependantcol->setItemText(position - 1, titre);
}

void frmAddCategorie2::AccorderBoutons()
{
    m_ui->btSupprCol->setEnabled(Colonnes.Choisie() > 0);
    m_ui->btUp->setEnabled(Colonnes.PeutMonter());
    m_ui->btDown->setEnabled(Colonnes.PeutDescendre());
}

// ---- what the user does

void frmAddCategorie2::Text1Change(const QString& titre)
{
    if (Colonnes.Choisie() == 0) {
        m_ui->Text1->setEnabled(false);
        return;
    }
    Colonnes.Renommer(titre);
    MontrerTitre(Colonnes.Choisie());
    m_ui->Text1->setReadOnly(Colonnes.TitreFige());
}

void frmAddCategorie2::Ajouter()
{
    Colonnes.Ajouter();
    Montrer();
    m_ui->Text1->setFocus();
}

void frmAddCategorie2::Supprimer()
{
    if (Colonnes.Supprimer())
        Montrer();
}

void frmAddCategorie2::Deplacer(void (ColonnesDeCategorie::*deplacement)())
{
    (Colonnes.*deplacement)();
    Montrer();
}

/// What the user has typed goes only when he agrees.
void frmAddCategorie2::PrendreModele(const ModeleDeCategorie& modele)
{
    if (Colonnes.ADesTitres()) {
        const Message question = LangMsg(u"msgModeleRemplace"_s, u"Remplacer vos colonnes par celles de « %1 » ?"_s)
                                     .Remplacer(u"%1"_s, modele.nom);
        if (AfficherMsg(question.ParDefaut(RepNon), MsgOuiNon, QString()) != RepOui)
            return;
    }
    Colonnes.Remplacer(modele.colonnes);
    Montrer();
    AllerAuTitre();
}

void frmAddCategorie2::Valider()
{
    const bool complete = Colonnes.Verifier();
    Montrer();
    if (complete)
        accept();
    else if (Colonnes.Titres().contains(QString()))
        Ajouter(); // leads to the title that is missing
}

bool frmAddCategorie2::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_ui->Text1 && event->type() == QEvent::KeyPress && ToucheDuTitre(static_cast<QKeyEvent&>(*event)))
        return true;
    return QDialog::eventFilter(objet, event);
}

/// True when the key is done with. Enter does not validate here: whoever types title after title presses it often.
bool frmAddCategorie2::ToucheDuTitre(const QKeyEvent& touche)
{
    if ((touche.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (touche.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        ColonneSuivante();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int voisine = Colonnes.Choisie() + (touche.key() == Qt::Key_Up ? -1 : 1);
        if (voisine >= 1 && voisine <= Colonnes.Nombre())
            m_ui->List1->setCurrentRow(voisine - 1);
        return true;
    }
    default:
        return false;
    }
}

/// The next column there is, or a new one behind the last. A title still empty is to be typed first.
void frmAddCategorie2::ColonneSuivante()
{
    if (Colonnes.TitreChoisi().isEmpty())
        return;
    if (Colonnes.PeutDescendre()) {
        m_ui->List1->setCurrentRow(Colonnes.Choisie());
    } else {
        Colonnes.Enchainer();
        Montrer();
    }
    AllerAuTitre();
}

void frmAddCategorie2::AllerAuTitre()
{
    m_ui->Text1->setFocus();
    m_ui->Text1->selectAll();
}
