#include "shell/frmOptions.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "extensions/dialogues/frmTip.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "shell/frmPolice.h"
#include "ui_frmOptions.h"
#include "vue/PoliceDeTable.h"

#include <QShortcut>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

struct Case
{
    QCheckBox* Ui::frmOptions::*boite;
    const OptionOuiNon& option;
    bool defaut;
};

/// The boxes that show their setting as it is. That of the comments is a no until it is written, though comments are
/// shown then. It is meant.
constexpr Case Cases[] = {
    {&Ui::frmOptions::ckOpenLastFile, Options::OpenLastFile, Options::OpenLastFile.defaut},
    {&Ui::frmOptions::CKverrifie, Options::VerrifAssociation, Options::VerrifAssociation.defaut},
    {&Ui::frmOptions::ckInfobulle, Options::showInfobulles, Options::showInfobulles.defaut},
    {&Ui::frmOptions::ckCommentaires, Options::commentAtStartup, false},
    {&Ui::frmOptions::ckImprim, Options::MessageImprim, Options::MessageImprim.defaut},
    {&Ui::frmOptions::ckSelection, Options::MessageEditMulti, Options::MessageEditMulti.defaut},
    {&Ui::frmOptions::ckSauvegarde, Options::SauvegardeLBK, Options::SauvegardeLBK.defaut},
};

} // namespace

frmOptions::frmOptions(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmOptions>())
{
    m_ui->setupUi(this);
    DecorerBoutons();
    LireReglages();
    AccorderSauvegarde();
    m_ui->txtTempFolder->setText(TempFolder);
    MontrerPolice();
    Relier();
    LangForm(*this);
    NommerOnglets();
    m_ui->txtTempFolder->setAccessibleName(m_ui->FrameTemp->title());
    m_ui->tbsOptions->setAccessibleName(windowTitle());
    MontrerPage();
}

frmOptions::~frmOptions() = default;

void frmOptions::DecorerBoutons()
{
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btCancel->setIcon(Icone(u"annuler"_s));
    m_ui->btParcourir1->setIcon(Icone(u"parcourir"_s));
    m_ui->btReInit->setIcon(Icone(u"annuler"_s));
    m_ui->btSetFont->setIcon(Icone(u"showtexte"_s));
}

void frmOptions::LireReglages()
{
    for (const Case& la : Cases)
        (m_ui.get()->*la.boite)->setChecked(LireOption(la.option, la.defaut));
    // The setting says the opposite of its name: 1 keeps the tips away.
    m_ui->chkLoadTipsAtStartup->setChecked(!LireOption(Options::ShowTipsAtStartup));
    const bool toujours = LireOption(Options::SauvegardeLBK_1);
    m_ui->optDetail_0->setChecked(toujours);
    m_ui->optDetail_1->setChecked(!toujours);
    m_ui->txtVotreEmail->setText(LireOption(Options::VotreEmail));
    m_ui->txtVotreSmtp->setText(LireOption(Options::VotreSmtp));
}

void frmOptions::EcrireReglages()
{
    EcrireOption(Options::VerrifAssociation, m_ui->CKverrifie->isChecked());
    EcrireOption(Options::ShowTipsAtStartup, !m_ui->chkLoadTipsAtStartup->isChecked());
    // As it stands there: the next start does without a folder that does not serve.
    EcrireOption(Options::TempFolder, m_ui->txtTempFolder->text());
    // The start reads OpenLastFile: keys have no case.
    EcrireOption(u"OpenlastFile"_s, m_ui->ckOpenLastFile->isChecked());
    EcrireOption(Options::commentAtStartup, m_ui->ckCommentaires->isChecked());
    EcrireOption(Options::VotreEmail, m_ui->txtVotreEmail->text());
    EcrireOption(Options::VotreSmtp, m_ui->txtVotreSmtp->text());
    EcrireOption(Options::MessageImprim, m_ui->ckImprim->isChecked());
    EcrireOption(Options::MessageEditMulti, m_ui->ckSelection->isChecked());
    EcrireOption(Options::SauvegardeLBK, m_ui->ckSauvegarde->isChecked());
    EcrireOption(Options::SauvegardeLBK_1, m_ui->optDetail_0->isChecked());
    EcrireOption(Options::showInfobulles, m_ui->ckInfobulle->isChecked());
}

/// Tabs are no controls of their own that a language file could name.
void frmOptions::NommerOnglets()
{
    const auto nommer = [this](int onglet, const QString& cle, const QString& caption, const QString& aide) {
        m_ui->tbsOptions->tabBar()->setTabData(onglet, cle);
        m_ui->tbsOptions->setTabText(onglet, caption);
        m_ui->tbsOptions->setTabToolTip(onglet, aide);
    };
    nommer(0, u"Group1"_s, LangMsg(u"msgGroup1"_s, u"Général"_s).texte,
           LangMsg(u"msgGroup1Aide"_s, u"Définir les options générales"_s).texte);
    nommer(1, u"Group2"_s, LangMsg(u"msgGroup2"_s, u"Affichage"_s).texte,
           LangMsg(u"msgGroup2Aide"_s, u"Définir les options du groupe 2"_s).texte);
    nommer(2, u"Group3"_s, LangMsg(u"msgGroup3"_s, u"Répertoire et Email"_s).texte,
           LangMsg(u"msgGroup3Aide"_s, u"Définir les options du groupe 3"_s).texte);
    nommer(3, u"Group4"_s, LangMsg(u"msgGroup4"_s, u"Sauvegarde"_s).texte,
           LangMsg(u"msgGroup4Aide"_s, u"Définir les options du groupe 4"_s).texte);
}

void frmOptions::Relier()
{
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this), &QShortcut::activated, this,
            [this] { OngletSuivant(1); });
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), this), &QShortcut::activated, this,
            [this] { OngletSuivant(-1); });
    connect(m_ui->tbsOptions, &QTabWidget::currentChanged, this, &frmOptions::MontrerPage);
    connect(m_ui->ckSauvegarde, &QCheckBox::toggled, this, &frmOptions::AccorderSauvegarde);
    connect(m_ui->btParcourir1, &QPushButton::clicked, this, &frmOptions::Parcourir);
    connect(m_ui->btAssocier, &QPushButton::clicked, this, &frmOptions::Associer);
    connect(m_ui->btAstuceDuJour, &QPushButton::clicked, this, [this] { frmTip(this).exec(); });
    connect(m_ui->btSetFont, &QPushButton::clicked, this, &frmOptions::ChangerPolice);
    connect(m_ui->btReInit, &QPushButton::clicked, this, [this] {
        EcrirePolice(ReglagesDePolice());
        MontrerPolice();
    });
    connect(m_ui->btOK, &QPushButton::clicked, this, [this] {
        EcrireReglages();
        accept();
    });
    connect(m_ui->btCancel, &QPushButton::clicked, this, &QDialog::reject);
    // The window of tips has a box of its own, and may be opened from here.
    SuivreOption(Options::ShowTipsAtStartup, *this,
                 [this] { m_ui->chkLoadTipsAtStartup->setChecked(!LireOption(Options::ShowTipsAtStartup)); });
}

/// Goes round: after the last tab comes the first one.
void frmOptions::OngletSuivant(int pas)
{
    const int nombre = m_ui->tbsOptions->count();
    m_ui->tbsOptions->setCurrentIndex((m_ui->tbsOptions->currentIndex() + pas + nombre) % nombre);
}

void frmOptions::MontrerPage()
{
    for (int i = 0; i < m_ui->tbsOptions->count(); ++i)
        m_ui->tbsOptions->widget(i)->setEnabled(i == m_ui->tbsOptions->currentIndex());
}

void frmOptions::AccorderSauvegarde()
{
    m_ui->optDetail_0->setEnabled(m_ui->ckSauvegarde->isChecked());
    m_ui->optDetail_1->setEnabled(m_ui->ckSauvegarde->isChecked());
}

void frmOptions::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        MontrerPolice();
}

void frmOptions::MontrerPolice()
{
    m_ui->FontExemple->setFont(PoliceDeTable());
    m_ui->FontExemple->setPalette(PaletteDExemple(LirePolice()));
}

/// A choice that is cancelled writes the old values. It is meant.
void frmOptions::ChangerPolice()
{
    EcrirePolice(ChoisirPolice(LirePolice(), *this));
    MontrerPolice();
}

void frmOptions::Parcourir()
{
    const QString dossier = ChoisirDossier(m_ui->txtTempFolder->text(),
                                           LangMsg(u"msgChoisirTemp"_s, u"Choisissez un repertoire temporaire"_s));
    if (dossier.isEmpty())
        return;
    m_ui->txtTempFolder->setText(dossier);
    AfficherMsg(LangMsg(u"msg2"_s, u"Ce changement sera pris en compte lors de la prochaine ouverture de Zelvane"_s),
                MsgOk, LangMsg(u"msgConfiguration"_s, u"Zelvane2 - Configuration"_s));
}

void frmOptions::Associer()
{
    EnregistrerAssociation();
    AfficherMsg(LangMsg(u"msg1"_s, u"C'est fait !"_s), MsgOk, QString());
}
