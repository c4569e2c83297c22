#include "columns/frmSeparerEn2.h"

#include "base/Options.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ChampDeTitre.h"
#include "columns/SeparerColonne.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "ui_frmSeparerEn2.h"

using namespace Qt::StringLiterals;

frmSeparerEn2::frmSeparerEn2(QrtClass& document, QWidget* parent)
    : QDialog(parent), myqrt(document), m_ui(std::make_unique<Ui::frmSeparerEn2>())
{
    m_ui->setupUi(this);
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    QSizePolicy place = m_ui->PB->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    m_ui->PB->setSizePolicy(place);
    m_ui->PB->hide();
    m_ui->Label5->hide();
    m_ui->C1->Remplir(TitresDesColonnes(myqrt));
    NeTaperQuUnTitre(*m_ui->nom);
    NeTaperQuUneLigne(*m_ui->Separateur);
    m_ui->Separateur->setText(LireOption(Options::SeparerEn2));
    connect(m_ui->btseparer, &QPushButton::clicked, this, &frmSeparerEn2::Separer);
    connect(m_ui->btDupliquer, &QPushButton::clicked, this, &frmSeparerEn2::Dupliquer);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    m_ui->C1->Nommer(*m_ui->Label2);
}

frmSeparerEn2::~frmSeparerEn2() = default;

void frmSeparerEn2::ServirADupliquer()
{
    for (QWidget* controle : {static_cast<QWidget*>(m_ui->Label4), static_cast<QWidget*>(m_ui->Separateur),
                              static_cast<QWidget*>(m_ui->btseparer), static_cast<QWidget*>(m_ui->Label1)})
        controle->hide();
    m_ui->Label5->show();
    m_ui->btDupliquer->setDefault(true);
    const QString titre = LangMsg(u"msg84"_s, u"Dupliquer une colonne"_s);
    m_ui->Frame1->setTitle(titre);
    setWindowTitle(titre);
}

void frmSeparerEn2::reject()
{
    if (!m_travail.EnCours())
        QDialog::reject();
}

void frmSeparerEn2::Separer()
{
    const ChoixDeColonne source = m_ui->C1->Choix();
    const QString titre = m_ui->nom->text();
    const QString separateur = m_ui->Separateur->text();
    if (m_travail.EnCours() || !PeutSeparer(myqrt, source, titre) || !SeparateurDonne(separateur))
        return;
    if (!Faire([&](Avancement& avancement) { ::Separer(myqrt, source.position, titre, separateur, avancement); }))
        return;
    EcrireOption(Options::SeparerEn2, separateur);
    accept();
}

void frmSeparerEn2::Dupliquer()
{
    const ChoixDeColonne source = m_ui->C1->Choix();
    const QString titre = m_ui->nom->text();
    if (m_travail.EnCours() || !PeutSeparer(myqrt, source, titre))
        return;
    if (Faire([&](Avancement& avancement) { ::Dupliquer(myqrt, source.position, titre, avancement); }))
        accept();
}

bool frmSeparerEn2::Faire(const std::function<void(Avancement&)>& travail)
{
    return m_travail.Faire(m_ui->PB, myqrt.ItemsCount() + 1, travail);
}
