#include "entries/frmDragAndDrop.h"

#include "base/Const_Vrac.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "ui_frmDragAndDrop.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

frmDragAndDrop::frmDragAndDrop(const Correspondance& rangs, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmDragAndDrop>()), m_arrivees(rangs.arrivees)
{
    m_ui->setupUi(this);
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_ui->up->setIcon(Icone(u"up"_s));
    m_ui->down->setIcon(Icone(u"down"_s));
    OrdonnerTouches();
    Remplir(rangs);
    m_ui->ListView1->Afficher(m_table);
    m_ui->ListView1->horizontalHeader()->setSectionsClickable(false); // a sort would tear the rows apart
    Brancher();
    LangForm(*this);
}

frmDragAndDrop::~frmDragAndDrop()
{
    // The view looks at the table to its last moment.
    delete m_ui->ListView1;
}

/// Tab leads to the buttons of the bar, too; a click leaves the keys to the list.
void frmDragAndDrop::OrdonnerTouches()
{
    QWidget* avant = m_ui->ListView1;
    for (QAction* action : m_ui->Toolbar1->actions()) {
        QWidget* bouton = m_ui->Toolbar1->widgetForAction(action);
        bouton->setFocusPolicy(Qt::TabFocus);
        setTabOrder(avant, bouton);
        avant = bouton;
    }
}

void frmDragAndDrop::Remplir(const Correspondance& rangs)
{
    m_table.ColumnHeaders.Add(0, LangMsg(u"msgDepart"_s, u"Départ"_s));
    m_table.ColumnHeaders.Add(0, LangMsg(u"msgArrivee"_s, u"Arrivée"_s));
    for (qsizetype i = 0; i < rangs.Rangs(); ++i)
        m_table.ListItems.Add(0, QString(), QString()).EcrireValeurs({rangs.departs[i], rangs.arrivees[i]});
}

void frmDragAndDrop::Brancher()
{
    connect(m_ui->up, &QAction::triggered, this, &frmDragAndDrop::Monter);
    connect(m_ui->down, &QAction::triggered, this, &frmDragAndDrop::Descendre);
    connect(m_ui->ListView1, &ListeAOrdonner::LigneMenee, this, &frmDragAndDrop::Mener);
    connect(m_ui->btOK, &QPushButton::clicked, this, [this] {
        Valide = true;
        accept();
    });
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

/// Both columns together are as wide as the list, whatever its letters.
void frmDragAndDrop::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_ui->ListView1->RedimensionnerColonnes();
}

Correspondance frmDragAndDrop::Rangs() const
{
    Correspondance rangs{{}, m_arrivees};
    rangs.departs.reserve(m_arrivees.size());
    for (int i = 1; i <= m_table.ListItems.Count(); ++i)
        rangs.departs.append(m_table.ListItems(i).Text());
    return rangs;
}

void frmDragAndDrop::Monter()
{
    if (const int ligne = PremiereSelection(m_table); ligne >= 2)
        Mener(ligne, ligne - 1);
}

void frmDragAndDrop::Descendre()
{
    if (const int ligne = PremiereSelection(m_table); ligne > 0 && ligne < m_table.ListItems.Count())
        Mener(ligne, ligne + 1);
}

/// The left cell goes past those between the two rows, which move up or down by one. It stays selected.
void frmDragAndDrop::Mener(int de, int vers)
{
    const int pas = vers > de ? 1 : -1;
    const QString menee = m_table.ListItems(de).Text();
    for (int i = de; i != vers; i += pas)
        m_table.ListItems(i).SetText(m_table.ListItems(i + pas).Text());
    m_table.ListItems(vers).SetText(menee);
    m_table.ListItems(de).SetSelected(false);
    Choisir(vers);
}

void frmDragAndDrop::Choisir(int ligne)
{
    m_table.ListItems(ligne).SetSelected(true);
    m_table.SetSelectedItem(m_table.ListItems(ligne));
    m_ui->ListView1->RendreVisible(ligne);
}
