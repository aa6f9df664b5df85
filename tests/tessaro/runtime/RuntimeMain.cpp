// Test main of the runtime: images are decoded and pictures painted, which
// needs a GUI application object (offscreen when there is no display). No
// sound is played.
#include <tessaro/kit/AudioNode.h>

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    tessaro::kit::AudioNode::setAudioEnabled(false);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
