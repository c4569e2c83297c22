#include "shell/Form1.h"

#include "base/Const_Vrac.h"
#include "extensions/modLang.h"
#include "shell/VueTable.h"
#include "ui_Form1.h"

#include <QCloseEvent>
#include <QLabel>

#include <utility>

using namespace Qt::StringLiterals;

Form1::Form1(QWidget* parent) : QMainWindow(parent), m_ui(std::make_unique<Ui::Form1>())
{
    m_ui->setupUi(this);
    // A window inside another one; QMainWindow would make itself a window of the desktop.
    setWindowFlags(Qt::Widget);
    FaireLigneDEtat();
    m_ui->wait->Montrer(false);
    m_ui->fOuvrir->Montrer(false);

    Tag = NouveauTag();
    myqrt.MyLV = &m_table;
    myqrt.wait = m_ui->wait;
    myqrt.Ouvrir = m_ui->fOuvrir;
    m_ui->ListView1->Afficher(m_table);
    connect(m_ui->ListView1, &VueTable::TableRafraichie, this, &Form1::RedrawAll);
    setFocusProxy(m_ui->ListView1);
    RedrawAll();
}

Form1::~Form1()
{
    // The view looks at the table to its last moment.
    delete m_ui->ListView1;
    SupprimerTmpFolder();
}

void Form1::Decharger()
{
    // Inside the frame the window around this one goes, and takes it along.
    if (QWidget* autour = parentWidget())
        autour->close();
    else
        close();
}

void Form1::closeEvent(QCloseEvent* event)
{
    SupprimerTmpFolder();
    event->accept();
}

void Form1::SupprimerTmpFolder()
{
    if (!myqrt.DossierAGarder)
        SupprimerDossier(std::exchange(myqrt.TmpFolder, QString()), true);
}

void Form1::FaireLigneDEtat()
{
    const auto panneau = [this](int numero, const QString& nom) {
        auto* texte = new QLabel(m_ui->StatusBar1);
        texte->setObjectName(u"StatusBar1_%1"_s.arg(numero));
        texte->setAccessibleDescription(nom);
        texte->setMinimumWidth(texte->fontMetrics().averageCharWidth() * 22);
        m_ui->StatusBar1->addWidget(texte);
        return texte;
    };
    m_ui->StatusBar1->setContentsMargins(6, 0, 6, 0);
    m_nombre = panneau(1, u"Nombre d'entrées"_s);
    m_choisies = panneau(2, u"Nombre d'entrées sélectionnées"_s);
}

void Form1::RedrawAll()
{
    const auto compte = [](int nombre) { return QString::number(nombre); };
    m_nombre->setText(LangMsg(u"msg94"_s, u"%1 entrée(s)"_s).Remplacer(u"%1"_s, compte(myqrt.ItemsCount())));
    m_choisies->setText(LangMsg(u"msg95"_s, u"%1 selectionnée(s)"_s).Remplacer(u"%1"_s, compte(myqrt.SelItemsCount())));
}

VueTable& Form1::ListView1() const
{
    return *m_ui->ListView1;
}
