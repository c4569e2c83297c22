#include "extensions/dialogues/frmLang.h"

#include "base/Options.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "ui_frmLang.h"

#include <QFileInfo>

#include <utility>

frmLang::frmLang(std::function<void()> langChange, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmLang>()), m_langChange(std::move(langChange)),
      m_garde(FichierLangue)
{
    m_ui->setupUi(this);
    LangForm(*this);
    NommerListe();
    Remplir();
    connect(m_ui->lstLang, &QListWidget::itemSelectionChanged, this, &frmLang::Essayer);
    connect(m_ui->btOK, &QPushButton::clicked, this, &frmLang::Valider);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

frmLang::~frmLang()
{
    FichierLangue = m_garde;
}

/// The language in force is the one that is chosen at first: btOK alone changes nothing.
void frmLang::Remplir()
{
    m_ui->lstLang->addItems(ListeLangues());
    const QString enVigueur = QFileInfo(FichierLangue).completeBaseName();
    for (QListWidgetItem* langue : m_ui->lstLang->findItems(enVigueur, Qt::MatchExactly | Qt::MatchCaseSensitive)) {
        if (!enVigueur.isEmpty())
            m_ui->lstLang->setCurrentItem(langue);
    }
}

/// Lists are not read out by their label's caption.
void frmLang::NommerListe()
{
    m_ui->lstLang->setAccessibleName(m_ui->Label1->text());
}

/// Empty when no line is chosen.
QString frmLang::Choisie() const
{
    const QList<QListWidgetItem*> choisies = m_ui->lstLang->selectedItems();
    return choisies.isEmpty() ? QString() : choisies.first()->text();
}

void frmLang::Essayer()
{
    ChargerLangue(Choisie());
    ChangerLangueDe(*this);
    NommerListe();
}

void frmLang::Valider()
{
    EcrireOption(Options::QRTLangue, Choisie());
    m_garde = FichierLangue;
    m_langChange();
    accept();
}
