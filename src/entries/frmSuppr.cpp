#include "entries/frmSuppr.h"

#include "base/Const_Vrac.h"
#include "base/MenuSurgissant.h"
#include "base/Options.h"
#include "catalogue/texte/Dependance.h"
#include "catalogue/texte/QrtClass.h"
#include "entries/ModeleASupprimer.h"
#include "extensions/langue/LangForm.h"
#include "images/SupprimerImage.h"
#include "kit/Icones.h"
#include "ui_frmSuppr.h"

#include <iterator>

using namespace Qt::StringLiterals;

frmSuppr::frmSuppr(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmSuppr>())
{
    m_ui->setupUi(this);
    m_ui->btAjouter->setIcon(Icone(u"delentree"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    m_ui->ckDependant->setChecked(LireOption(Options::SupprDependant));
    LangForm(*this);
}

frmSuppr::~frmSuppr()
{
    // The view looks at the rows to its last moment.
    delete m_ui->ListView1;
}

bool frmSuppr::Lancer(QrtClass& doc)
{
    m_doc = &doc;
    const ColumnHeaders& colonnes = doc.MyLV->ColumnHeaders;
    for (int i = 1; i <= colonnes.Count(); ++i)
        m_colonnes.ColumnHeaders.Add(0, colonnes(i).Text()).SetWidth(colonnes(i).Width());
    m_liste = std::make_unique<ListeASupprimer>(doc);
    m_modele = std::make_unique<ModeleASupprimer>(*m_liste, m_colonnes.ColumnHeaders);
    m_ui->ListView1->Afficher(*m_modele, m_colonnes.ColumnHeaders);
    m_ui->ckDependant->setEnabled(EstDependante(doc));
    Brancher();
    RemplirListe();
    m_ui->ListView1->setFocus();
    exec();
    return Supprime;
}

void frmSuppr::Brancher()
{
    connect(m_modele.get(), &ModeleASupprimer::CochesChangees, this,
            [this] { m_ui->Lcount->setText(u"%1 / %2"_s.arg(m_liste->NbCoches()).arg(m_liste->Count())); });
    const auto brancher = [this](const QPushButton* bouton, auto&& action) {
        connect(bouton, &QPushButton::clicked, this, std::forward<decltype(action)>(action));
    };
    brancher(m_ui->btTout, [this] { m_modele->Cocher(1, m_liste->Count(), true); });
    brancher(m_ui->btRien, [this] { m_modele->Cocher(1, m_liste->Count(), false); });
    brancher(m_ui->btInverser, [this] { m_modele->Inverser(); });
    brancher(m_ui->btCSel, [this] { CocherSurlignees(true); });
    brancher(m_ui->btUSel, [this] { CocherSurlignees(false); });
    brancher(m_ui->btAjouter, [this] { Supprimer(); });
    brancher(m_ui->Annuler, [this] { reject(); });
    connect(m_ui->ckDependant, &QCheckBox::clicked, this, [this](bool cochee) {
        RemplirListe();
        EcrireOption(Options::SupprDependant, cochee);
    });
    connect(m_ui->ListView1, &VueDesLignes::EnteteCliquee, this,
            [this](int colonne) { m_ui->ListView1->SuivreOrdre(m_modele->Trier(colonne)); });
    connect(m_ui->ListView1, &QWidget::customContextMenuRequested, this, &frmSuppr::MontrerMenu);
}

void frmSuppr::RemplirListe()
{
    m_modele->Remplir(m_ui->ckDependant->isEnabled() && m_ui->ckDependant->isChecked());
}

void frmSuppr::CocherSurlignees(bool cochees)
{
    for (const auto& [premiere, derniere] : m_ui->ListView1->PlagesChoisies())
        m_modele->Cocher(premiere, derniere, cochees);
}

/// The items of the menu are the buttons, under other names.
void frmSuppr::MontrerMenu(const QPoint& place)
{
    const QString choix = ChoisirDansMenu(u"mMenuSupprimer"_s, m_ui->ListView1->viewport()->mapToGlobal(place));
    for (const auto& [item, bouton] : {std::pair{u"mCocher"_s, m_ui->btCSel},
                                       {u"mDecocher"_s, m_ui->btUSel},
                                       {u"mToutCocher"_s, m_ui->btTout},
                                       {u"mToutDecocher"_s, m_ui->btRien},
                                       {u"mInverser"_s, m_ui->btInverser}}) {
        if (choix == item)
            bouton->click();
    }
}

void frmSuppr::Supprimer()
{
    int mode = 0; // one answer may stand for all images of this batch
    m_modele->Supprimer(*m_doc, [&mode](const QString& fichier) { SupprimerImage(fichier, mode); });
    Supprime = true;
    accept();
}
