#include "extensions/dialogues/frmPresent2.h"

#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "ui_frmPresent2.h"

#include <QPainter>
#include <QRegion>
#include <QShowEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int Bord = 8;
constexpr int FinDuCercle = 370;
constexpr int Cote = FinDuCercle + Bord;

constexpr int Intervalle = 5; // ms
constexpr int Pas = 5;
constexpr int CompteurMax = 100;

const QColor EncreFoncee(0x12, 0x3a, 0x57);
const QColor Ambre(0xf4, 0xc4, 0x5c);

/// Parts of the disc's radius.
constexpr double PremierSillon = 0.55;
constexpr double DernierSillon = 0.96;
constexpr double EcartSillons = 0.025;
constexpr double Etiquette = 0.51;
constexpr double Trou = 0.035;

void Cercle(QPainter& painter, double rayon)
{
    painter.drawEllipse(QPointF(), rayon, rayon);
}

void DessinerSillons(QPainter& painter, double rayon)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 16), rayon * 0.004));
    for (double part = PremierSillon; part < DernierSillon; part += EcartSillons)
        Cercle(painter, rayon * part);
}

/// The light that a turning disc throws back: two soft rays, opposite each other.
void DessinerReflet(QPainter& painter, double rayon)
{
    QConicalGradient reflet(QPointF(), 52);
    const QColor sans(255, 255, 255, 0);
    for (const double cote : {0.0, 0.5}) {
        reflet.setColorAt(cote, QColor(255, 255, 255, 46));
        reflet.setColorAt(cote + 0.07, sans);
        reflet.setColorAt(cote + 0.43, sans);
    }
    reflet.setColorAt(1, QColor(255, 255, 255, 46));
    painter.setPen(Qt::NoPen);
    painter.setBrush(reflet);
    Cercle(painter, rayon * DernierSillon);
}

void DessinerEtiquette(QPainter& painter, double rayon)
{
    const double etiquette = rayon * Etiquette;
    QRadialGradient ambre(QPointF(), etiquette * 1.5, QPointF(-0.35, -0.55) * etiquette);
    ambre.setColorAt(0, QColor(0xff, 0xf3, 0xd6));
    ambre.setColorAt(0.5, Ambre);
    ambre.setColorAt(1, QColor(0xdf, 0x99, 0x33));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ambre);
    Cercle(painter, etiquette);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0xb8, 0x73, 0x1a, 90), rayon * 0.006));
    Cercle(painter, etiquette * 0.93);

    painter.setPen(Qt::NoPen);
    painter.setBrush(EncreFoncee);
    Cercle(painter, rayon * Trou);
}

/// A record in the colours of the program's icon, its centre at the painter's origin.
void DessinerDisque(QPainter& painter, double rayon)
{
    QRadialGradient corps(QPointF(), rayon);
    corps.setColorAt(0, QColor(0x2f, 0x7f, 0xa8));
    corps.setColorAt(0.75, QColor(0x1d, 0x4f, 0x73));
    corps.setColorAt(0.97, EncreFoncee);
    corps.setColorAt(1, QColor(0x0d, 0x2a, 0x40));
    painter.setPen(Qt::NoPen);
    painter.setBrush(corps);
    Cercle(painter, rayon);

    DessinerSillons(painter, rayon);
    DessinerReflet(painter, rayon);
    DessinerEtiquette(painter, rayon);
}

void Agrandir(QLabel& etiquette, double pixels, QFont::Weight graisse)
{
    QFont police = etiquette.font();
    police.setPixelSize(qRound(pixels));
    police.setWeight(graisse);
    etiquette.setFont(police);
    QPalette couleurs = etiquette.palette();
    couleurs.setColor(QPalette::Window, Ambre);
    couleurs.setColor(QPalette::WindowText, EncreFoncee);
    etiquette.setPalette(couleurs);
}

} // namespace

frmPresent2::frmPresent2(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_ui(std::make_unique<Ui::frmPresent2>()),
      m_timer1(new QTimer(this))
{
    m_ui->setupUi(this);
    // Lets the edge of the disc blend into what is behind it, where the desktop can do that.
    setAttribute(Qt::WA_TranslucentBackground);
    const double echelle = logicalDpiX() / 96.0;
    setFixedSize(QSize(Cote, Cote) * echelle);
    Agrandir(*m_ui->lblNom, 29 * echelle, QFont::Bold);
    Agrandir(*m_ui->lblVersion, 13 * echelle, QFont::Normal);
    m_ui->lblVersion->setText(
        LangMsg(u"msgVersion"_s, u"Version %1"_s).Remplacer(u"%1"_s, QStringLiteral(ZELVANE_VERSION)));

    oval();
    m_timer1->setObjectName(u"Timer1"_s);
    m_timer1->setInterval(Intervalle);
    connect(m_timer1, &QTimer::timeout, this, &frmPresent2::Timer1_Timer);
    LangForm(*this);
}

frmPresent2::~frmPresent2() = default;

void frmPresent2::oval()
{
    const double echelle = logicalDpiX() / 96.0;
    const QPoint coin(qRound(Bord * echelle), qRound(Bord * echelle));
    m_cercle = QRect(coin, QSize(1, 1) * qRound((FinDuCercle - Bord) * echelle));
    setMask(QRegion(m_cercle, QRegion::Ellipse));
}

/// Only now: ticks before would close a window that is not there, and its exec() would then wait for ever.
void frmPresent2::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    m_compteur = 0;
    m_timer1->start();
}

void frmPresent2::Timer1_Timer()
{
    m_compteur += Pas;
    if (m_compteur <= CompteurMax)
        return;
    m_timer1->stop();
    close();
}

void frmPresent2::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(m_cercle).center());
    // One pixel inside the shape, which has no half-tones of its own.
    DessinerDisque(painter, m_cercle.width() / 2.0 - 1);
}
