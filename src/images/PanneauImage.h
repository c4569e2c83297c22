// One picture, as large as the panel allows, its proportions kept: the images panel beside a document's table, the
// previews of the dialogs.
#pragma once

#include <QDateTime>
#include <QPixmap>
#include <QWidget>

class PanneauImage : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauImage(QWidget* parent = nullptr);

    /// Shows the picture of a file, decoded at the size it is shown at. False when it cannot be loaded: the panel then
    /// stays as it was.
    bool Charger(const QString& fichier);
    void Vider();
    /// Shows the picture, or nothing when `fichier` is empty or cannot be loaded.
    void ChargerOuVider(const QString& fichier);

    /// The picture as it is drawn; null for an empty panel.
    QPixmap Image() const { return m_montree ? m_image : QPixmap(); }

signals:
    void DoubleClic();
    /// The right button was released over the panel, at this place of the screen.
    void ClicDroit(const QPoint& place);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// What was read last, so that refreshing costs no second reading.
    struct Lecture
    {
        QString fichier;
        QDateTime date;
        qint64 octets = 0;
        bool operator==(const Lecture&) const = default;
    };

    QSize Place() const;

    QPixmap m_image;
    bool m_montree = false;
    Lecture m_lecture;
    QSize m_place; ///< the room that m_image was made for
};
