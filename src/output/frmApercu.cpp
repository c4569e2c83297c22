#include "output/frmApercu.h"

#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "output/VuePage.h"
#include "ui_frmApercu.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Lines of the list of sizes; those behind are percents of the paper's own size.
constexpr int PageEntiere = 0;
constexpr int LargeurDePage = 1;
constexpr std::array Pourcents = {25, 50, 75, 100, 150, 200, 400};
constexpr double PoucesDeLargeur = LargeurDuPapier / 25.4;

} // namespace

frmApercu::frmApercu(const PagesComposees& pages, const QImage& image, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmApercu>()), m_pages(pages, image), m_page(new VuePage(m_pages))
{
    m_ui->setupUi(this);
    m_ui->btPrecedente->setIcon(Icone(u"left"_s));
    m_ui->btSuivante->setIcon(Icone(u"right"_s));
    m_ui->btFermer->setIcon(Icone(u"ok"_s));
    LangForm(*this);
    const auto nombre = static_cast<int>(m_pages.Nombre());
    m_ui->NumeroDePage->setRange(1, nombre);
    m_ui->NumeroDePage->setSuffix(u" / "_s + QString::number(nombre));
    m_ui->Taille->addItem(LangMsg(u"msgPageEntiere"_s, u"Page entière"_s));
    m_ui->Taille->addItem(LangMsg(u"msgLargeurDePage"_s, u"Largeur de la page"_s));
    for (const int pourcent : Pourcents)
        m_ui->Taille->addItem(QString::number(pourcent) + u" %"_s);
    m_ui->Zone->setWidget(m_page);
    m_ui->Zone->setAccessibleName(windowTitle());
    m_ui->Zone->installEventFilter(this);
    m_ui->Zone->viewport()->installEventFilter(this);

    connect(m_ui->NumeroDePage, &QSpinBox::valueChanged, this, &frmApercu::AllerA);
    connect(m_ui->btPrecedente, &QPushButton::clicked, this, [this] { m_ui->NumeroDePage->stepDown(); });
    connect(m_ui->btSuivante, &QPushButton::clicked, this, [this] { m_ui->NumeroDePage->stepUp(); });
    connect(m_ui->Taille, &QComboBox::currentIndexChanged, this, &frmApercu::Ajuster);
    connect(m_ui->btFermer, &QPushButton::clicked, this, &QDialog::accept);
    AllerA(1);
    m_ui->Zone->setFocus();
}

frmApercu::~frmApercu() = default;

void frmApercu::AllerA(int page)
{
    m_page->Montrer(static_cast<size_t>(page - 1));
    m_ui->btPrecedente->setEnabled(page > 1);
    m_ui->btSuivante->setEnabled(page < m_ui->NumeroDePage->maximum());
    m_ui->Zone->verticalScrollBar()->setValue(0);
}

/// To the next larger or smaller line of the list of sizes, from what is seen.
void frmApercu::Grossir(int pas)
{
    const double vue = 100 * (m_page->width() - 2 * VuePage::Bordure) / (PoucesDeLargeur * logicalDpiX());
    const auto premier = Pourcents.begin();
    if (pas > 0) {
        const auto suivant = std::upper_bound(premier, Pourcents.end(), static_cast<int>(std::lround(vue)));
        if (suivant != Pourcents.end())
            m_ui->Taille->setCurrentIndex(2 + static_cast<int>(suivant - premier));
    } else {
        const auto suivant = std::lower_bound(premier, Pourcents.end(), static_cast<int>(std::lround(vue)));
        if (suivant != premier)
            m_ui->Taille->setCurrentIndex(1 + static_cast<int>(suivant - premier));
    }
}

void frmApercu::Ajuster()
{
    const QSize place = m_ui->Zone->maximumViewportSize() - QSize(2 * VuePage::Bordure, 2 * VuePage::Bordure);
    const int choix = m_ui->Taille->currentIndex();
    int largeur = 0;
    if (choix == PageEntiere) {
        const int parHauteur = place.height() * place.width() / std::max(1, VuePage::HauteurPour(place.width()));
        largeur = std::min(place.width(), parHauteur);
    } else if (choix == LargeurDePage) {
        largeur = place.width() - m_ui->Zone->verticalScrollBar()->sizeHint().width();
    } else {
        largeur = static_cast<int>(
            std::lround(PoucesDeLargeur * logicalDpiX() * Pourcents[static_cast<size_t>(choix - 2)] / 100));
    }
    m_page->MettreLargeur(std::max(1, largeur));
}

void frmApercu::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    layout()->activate();
    Ajuster();
}

/// The wheel with Ctrl changes the size; keys that scroll the page turn it where it ends.
bool frmApercu::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        auto& roue = *static_cast<QWheelEvent*>(event);
        if (roue.modifiers() & Qt::ControlModifier) {
            Grossir(roue.angleDelta().y());
            return true;
        }
    } else if (event->type() == QEvent::KeyPress) {
        const QScrollBar& barre = *m_ui->Zone->verticalScrollBar();
        const int touche = static_cast<QKeyEvent*>(event)->key();
        if (touche == Qt::Key_PageDown && barre.value() == barre.maximum()) {
            m_ui->NumeroDePage->stepUp();
            return true;
        }
        if (touche == Qt::Key_PageUp && barre.value() == barre.minimum()) {
            m_ui->NumeroDePage->stepDown();
            return true;
        }
        if (touche == Qt::Key_Home || touche == Qt::Key_End) {
            m_ui->NumeroDePage->setValue(touche == Qt::Key_Home ? 1 : m_ui->NumeroDePage->maximum());
            return true;
        }
        if (touche == Qt::Key_Plus || touche == Qt::Key_Minus) {
            Grossir(touche == Qt::Key_Plus ? 1 : -1);
            return true;
        }
    }
    return QDialog::eventFilter(objet, event);
}
