#include "images/frmSupprImg.h"

#include "extensions/langue/LangForm.h"
#include "ui_frmSupprImg.h"

frmSupprImg::frmSupprImg(const QString& chemin, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmSupprImg>())
{
    m_ui->setupUi(this);
    m_ui->Img->Charger(chemin);
    connect(m_ui->btOui, &QPushButton::clicked, this, [this] { Repondre(SupprImgOui); });
    connect(m_ui->btOuiAll, &QPushButton::clicked, this, [this] { Repondre(SupprImgOuiTous); });
    connect(m_ui->btNon, &QPushButton::clicked, this, [this] { Repondre(SupprImgNon); });
    connect(m_ui->btNonAll, &QPushButton::clicked, this, [this] { Repondre(SupprImgNonTous); });
    LangForm(*this);
    // What a screen reader says first.
    setAccessibleDescription(m_ui->Label1->text());
    m_ui->btNon->setFocus();
}

frmSupprImg::~frmSupprImg() = default;

void frmSupprImg::Repondre(int reponse)
{
    Resultat = reponse;
    accept();
}
