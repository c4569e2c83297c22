// One composed page on the screen.
#pragma once

#include <QWidget>

class PeintreDePages;

class VuePage : public QWidget
{
    Q_OBJECT

public:
    /// `pages` is not owned and outlives this.
    explicit VuePage(const PeintreDePages& pages, QWidget* parent = nullptr);

    /// From 0.
    void Montrer(size_t page);
    /// Of the paper, in pixels.
    void MettreLargeur(int largeur);
    /// Height of the paper for a width.
    static int HauteurPour(int largeur);

    /// Pixels around the paper.
    static constexpr int Bordure = 8;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PeintreDePages& m_pages;
    size_t m_page = 0;
    int m_largeur = 0;
};
