// File attributes.
#pragma once

#include <QString>

/// The read-only attribute, which stands for the owner's write permission: set when the permission is missing.
class AttributsFichier
{
public:
    virtual ~AttributsFichier() = default;
    /// False also for a file that does not exist.
    virtual bool EstLectureSeule(const QString& chemin) const = 0;
    /// The other permissions stay as they are. False when it could not be done.
    virtual bool MettreLectureSeule(const QString& chemin, bool lectureSeule) = 0;
};

class AttributsDisque : public AttributsFichier
{
public:
    bool EstLectureSeule(const QString& chemin) const override;
    bool MettreLectureSeule(const QString& chemin, bool lectureSeule) override;
};
