#include "columns/frmFusionner.h"

#include "base/Options.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ChampDeTitre.h"
#include "columns/FusionnerColonnes.h"
#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "ui_frmFusionner.h"

using namespace Qt::StringLiterals;

frmFusionner::frmFusionner(QrtClass& document, QWidget* parent)
    : QDialog(parent), myqrt(document), m_ui(std::make_unique<Ui::frmFusionner>())
{
    m_ui->setupUi(this);
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    QSizePolicy place = m_ui->PB->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    m_ui->PB->setSizePolicy(place);
    m_ui->PB->hide();
    const QStringList titres = TitresDesColonnes(myqrt);
    m_ui->C1->Remplir(titres);
    m_ui->C2->Remplir(titres);
    NeTaperQuUneLigne(*m_ui->Separateur);
    m_ui->Separateur->setText(LireOption(Options::FusionnerCol));
    connect(m_ui->btfusionner, &QPushButton::clicked, this, &frmFusionner::Fusionner);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    m_ui->C1->Nommer(*m_ui->Label2);
    m_ui->C2->Nommer(*m_ui->Label3);
}

frmFusionner::~frmFusionner() = default;

void frmFusionner::reject()
{
    if (!m_travail.EnCours())
        QDialog::reject();
}

void frmFusionner::Fusionner()
{
    if (m_travail.EnCours())
        return;
    const FusionDeColonnes fusion{m_ui->C1->Choix(), m_ui->C2->Choix(), m_ui->Separateur->text()};
    if (!PeutFusionner(myqrt, fusion) || !AccepterSeparateur(fusion.separateur))
        return;
    if (!m_travail.Faire(m_ui->PB, myqrt.ItemsCount() + 1,
                         [&](Avancement& avancement) { ::Fusionner(myqrt, fusion, avancement); }))
        return;
    EcrireOption(Options::FusionnerCol, fusion.separateur);
    accept();
}
