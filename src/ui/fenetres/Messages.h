#pragma once
// Message boxes with the application's title and French buttons. Tests answer
// them in advance and read back what was shown.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace Messages {

extern const QString kTitre;  // "Korvane"

void information(const QString &texte);
bool question(const QString &texte);  // true for "Oui"

enum class Reponse { Oui,
                     Non,
                     Annuler };
// A question with "Oui", "Non" and "Annuler"; Escape answers Annuler.
Reponse questionAnnulable(const QString &texte);

// While one lives, information boxes are not shown but kept, for their texts to be
// shown later (the window that would carry them is hidden meanwhile).
class Retenue {
public:
    Retenue();
    ~Retenue();
    Retenue(const Retenue &) = delete;
    Retenue &operator=(const Retenue &) = delete;
    const QStringList &textes() const { return textes_; }

private:
    friend void information(const QString &texte);
    QStringList textes_;
    Retenue *avant_;
};

// Test hooks: once prepared, no box is shown; questions take the prepared answers
// in order (No when none is left) and every text shown is recorded.
void preparerPourTests();
void prevoirReponses(const QList<bool> &reponses);
// Answers for questions of three: a two-way question takes Annuler as No, and a
// question of three takes true and false as Oui and Non.
void prevoirReponsesAnnulables(const QList<Reponse> &reponses);
QStringList affiches();  // texts shown since the last call, then emptied
int reponsesRestantes();

// Ends the program, by default; tests replace the ending.
void definirFinProgramme(std::function<void()> fin);

}  // namespace Messages

// Ends the program after asking, when the user answers Yes.
bool ConfirmerQuitter();
