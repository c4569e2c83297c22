#include "images/frmRemplacerImg.h"

#include "extensions/langue/LangForm.h"
#include "ui_frmRemplacerImg.h"

frmRemplacerImg::frmRemplacerImg(const QString& gauche, const QString& droite, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmRemplacerImg>())
{
    m_ui->setupUi(this);
    m_ui->Img_0->Charger(gauche);
    m_ui->Img_1->Charger(droite);
    connect(m_ui->btOui, &QPushButton::clicked, this, [this] {
        Resultat = true;
        accept();
    });
    connect(m_ui->btNon, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    // What a screen reader says first.
    setAccessibleDescription(m_ui->Label1->text());
    m_ui->btNon->setFocus();
}

frmRemplacerImg::~frmRemplacerImg() = default;
