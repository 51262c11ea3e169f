// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A person who does whatever comes to mind, with mouse and keyboard, while somebody else changes the scene, too.

#include "graph/CGraphUser.h"
#include "graph/SShownGraph.h"
#include "support/FreshSeed.h"
#include "support/SceneConsistency.h"

#include <random>

using namespace Host;

namespace {

struct SUser
{
    explicit SUser(unsigned int seed)
        : random(seed)
    {
        QObject::connect(shown.view.get(), &CGraphView::nodeSelected, &panel,
                         [this](const Core::CId& node) { panel.show(shown.edited.editor.get(), node); });
    }

    void act(bool withOthers)
    {
        const auto kind = std::uniform_int_distribution<int>(0, withOthers ? 17 : 15)(random);
        if (kind > 15)
            user.interfere(shown.edited.camera);
        else if (kind == 15)
            importChain();
        else
            user.act();
    }

    void importChain()
    {
        if (random() % 4 == 0 && user.hasRoom())
            shown.edited.editor->importChain(QString::fromUtf8(SEditedScene::demoChain().replace("\"*\"", "\"cam\"")));
    }

    SShownGraph shown;
    CSettingsPanel panel;
    std::mt19937 random;
    CGraphUser user{*shown.view, panel, random};
};

} // namespace

class tst_GraphUser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGraphStaysSound();
    void undoAndRedoGiveTheSameDocuments();
};

void tst_GraphUser::theGraphStaysSound()
{
    SUser user(freshSeed());
    const SShownGraph& shown = user.shown;
    for (int step = 0; step < userSteps(2000); ++step) {
        user.act(true);
        QCOMPARE(inconsistencyOf(*shown.edited.scene), QString());
        QCOMPARE(shown.mismatch(), QString());
        if (step % 100 == 0)
            shown.view->grab();
        QCoreApplication::processEvents();
    }
}

void tst_GraphUser::undoAndRedoGiveTheSameDocuments()
{
    SUser user(freshSeed());
    const SShownGraph& shown = user.shown;
    const QByteArray first = shown.edited.document();
    for (int round = 0; round < userSteps(2000) / 100; ++round) {
        for (int step = 0; step < 20; ++step)
            user.act(false);
        QCOMPARE(shown.mismatch(), QString()); // what was imported last gets its places
        const QByteArray last = shown.edited.document();
        const NodePositions positions = shown.edited.editor->positions();
        const int index = shown.edited.stack().index();
        shown.edited.stack().setIndex(0);
        QCOMPARE(shown.edited.document(), first);
        QCOMPARE(shown.mismatch(), QString());
        shown.edited.stack().setIndex(index);
        QCOMPARE(shown.edited.document(), last);
        QCOMPARE(shown.mismatch(), QString());
        QCOMPARE(shown.edited.editor->positions(), positions);
        QCOMPARE(inconsistencyOf(*shown.edited.scene), QString());
    }
}

QTEST_MAIN(tst_GraphUser)
#include "tst_GraphUser.moc"
