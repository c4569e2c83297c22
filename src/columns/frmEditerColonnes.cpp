#include "columns/frmEditerColonnes.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ChampDeTitre.h"
#include "columns/ColonnePrete.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "ui_frmEditerColonnes.h"

#include <QEvent>
#include <QShortcut>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

constexpr int LignesAuMoins = 5; // of the list of columns, whatever the size of its letters

} // namespace

frmEditerColonnes::frmEditerColonnes(QrtClass& document, QWidget* parent)
    : QDialog(parent), myqrt(document), m_ui(std::make_unique<Ui::frmEditerColonnes>())
{
    m_ui->setupUi(this);
    m_ui->Command4->setIcon(Icone(u"ok"_s));
    m_ui->btMonter->setIcon(Icone(u"up"_s));
    m_ui->btDescendre->setIcon(Icone(u"down"_s));
    QSizePolicy place = m_ui->PB->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    m_ui->PB->setSizePolicy(place);
    m_ui->PB->hide();
    m_ui->lstColonne3->setModel(new QStringListModel(this));
    m_ui->lstColonne3->setMinimumHeight(LignesAuMoins * fontMetrics().lineSpacing());
    for (QLineEdit* titre : {m_ui->newColonne, m_ui->newName})
        NeTaperQuUnTitre(*titre);
    Brancher();
    BrancherDefauts();
    BrancherTouches();
    lstRefresh();
    LangForm(*this);
    m_ui->lstColonne1->Nommer(*m_ui->Label2);
    m_ui->lstColonne2->Nommer(*m_ui->Label3);
    m_ui->lstColonne4->Nommer(*m_ui->Label5);
}

frmEditerColonnes::~frmEditerColonnes() = default;

void frmEditerColonnes::Brancher()
{
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmEditerColonnes::Ajouter);
    connect(m_ui->btSupprimer, &QPushButton::clicked, this, &frmEditerColonnes::Supprimer);
    connect(m_ui->ChangerNom, &QPushButton::clicked, this, &frmEditerColonnes::Renommer);
    connect(m_ui->btMonter, &QToolButton::clicked, this, [this] { Deplacer(Sens::Gauche); });
    connect(m_ui->btDescendre, &QToolButton::clicked, this, [this] { Deplacer(Sens::Droite); });
    connect(m_ui->Command1, &QPushButton::clicked, this, &frmEditerColonnes::ChangerDependante);
    connect(m_ui->Command4, &QPushButton::clicked, this, [this] {
        if (!m_travail.EnCours())
            accept();
    });
}

/// Enter presses the button of the group in which the user is at work.
void frmEditerColonnes::BrancherDefauts()
{
    const auto defaut = [this](QPushButton* bouton) { return [this, bouton] { ParDefaut(*bouton); }; };
    connect(m_ui->newColonne, &QLineEdit::textEdited, this, defaut(m_ui->btAjouter));
    connect(m_ui->newName, &QLineEdit::textEdited, this, defaut(m_ui->ChangerNom));
    connect(m_ui->lstColonne1, &ListeDeColonnes::Touchee, this, defaut(m_ui->btSupprimer));
    connect(m_ui->lstColonne2, &ListeDeColonnes::Touchee, this, defaut(m_ui->ChangerNom));
    connect(m_ui->lstColonne4, &ListeDeColonnes::Touchee, this, defaut(m_ui->Command1));
    for (QWidget* champ : {static_cast<QWidget*>(m_ui->newColonne), static_cast<QWidget*>(m_ui->newName),
                           static_cast<QWidget*>(m_ui->lstColonne3)})
        champ->installEventFilter(this);
}

void frmEditerColonnes::BrancherTouches()
{
    const auto touche = [this](Qt::Key cle, QAbstractButton* bouton) {
        auto* raccourci = new QShortcut(Qt::ALT | cle, m_ui->lstColonne3, nullptr, nullptr, Qt::WidgetShortcut);
        connect(raccourci, &QShortcut::activated, bouton, [bouton] { bouton->click(); });
    };
    touche(Qt::Key_Up, m_ui->btMonter);
    touche(Qt::Key_Down, m_ui->btDescendre);
}

void frmEditerColonnes::ParDefaut(QPushButton& bouton)
{
    bouton.setDefault(true);
}

bool frmEditerColonnes::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        if (objet == m_ui->newColonne)
            ParDefaut(*m_ui->btAjouter);
        else if (objet == m_ui->newName)
            ParDefaut(*m_ui->ChangerNom);
        else if (objet == m_ui->lstColonne3)
            ParDefaut(*m_ui->Command4);
    }
    return QDialog::eventFilter(objet, event);
}

void frmEditerColonnes::reject()
{
    m_ui->Command4->click();
}

void frmEditerColonnes::lstRefresh()
{
    const QStringList lignes = LignesDeDependance(myqrt);
    const QStringList titres = lignes.mid(1);
    m_ui->lstColonne1->Remplir(titres);
    m_ui->lstColonne2->Remplir(titres);
    static_cast<QStringListModel*>(m_ui->lstColonne3->model())->setStringList(titres);
    m_ui->lstColonne4->Remplir(lignes);
    m_ui->lstColonne4->Choisir(myqrt.dependantcol);
    ChercherColPrete(myqrt);
}

void frmEditerColonnes::Ajouter()
{
    if (m_travail.EnCours() || !AjouterColonne(myqrt, m_ui->newColonne->text()))
        return;
    lstRefresh();
    m_ui->newColonne->clear();
}

void frmEditerColonnes::Supprimer()
{
    const ChoixDeColonne choix = m_ui->lstColonne1->Choix();
    if (m_travail.EnCours() || !PeutSupprimer(myqrt, choix) || !AccepterSuppression())
        return;
    const int entrees = myqrt.ItemsCount();
    m_travail.Faire(entrees > 0 ? m_ui->PB : nullptr, entrees,
                    [&](Avancement& avancement) { SupprimerColonne(myqrt, choix.position, avancement); });
    lstRefresh();
}

void frmEditerColonnes::Renommer()
{
    if (m_travail.EnCours() ||
        !RenommerColonne(myqrt, m_ui->lstColonne2->Choix(), m_ui->newName->text(), m_ui->newColonne->text()))
        return;
    m_ui->newName->clear();
    lstRefresh();
}

void frmEditerColonnes::Deplacer(Sens sens)
{
    const int position = m_ui->lstColonne3->currentIndex().row();
    if (m_travail.EnCours())
        return;
    const QString dependante = m_ui->lstColonne4->Choix().texte;
    bool fait = false;
    m_travail.Faire(nullptr, 0, [&](Avancement& avancement) {
        fait = DeplacerColonne(myqrt, position, sens, dependante, avancement);
    });
    if (!fait)
        return;
    lstRefresh();
    if (myqrt.dependantcol < 0)
        m_ui->lstColonne4->MettreTexte(dependante);
    const int place = sens == Sens::Gauche ? position - 1 : position + 1;
    m_ui->lstColonne3->setCurrentIndex(m_ui->lstColonne3->model()->index(place, 0));
    m_ui->lstColonne3->setFocus();
}

void frmEditerColonnes::ChangerDependante()
{
    const ChoixDeColonne choix = m_ui->lstColonne4->Choix();
    if (m_travail.EnCours())
        return;
    // Nothing is checked: a text that was typed names no line, which is -1, and entries depend on no column then. It is
    // meant.
    ChoisirDependante(myqrt, choix.position);
    AfficherMsg(LangMsg(u"msg12"_s, u"ok changement effectué"_s), MsgOk, QString());
}
