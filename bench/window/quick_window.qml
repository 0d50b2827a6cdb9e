// See quick_window.cpp.
import QtQuick
import QtQuick.Window

Rectangle {
    id: root
    width: 400
    height: 572
    color: "#15111f"
    FontLoader { id: rocket; source: bundles + "Fernhorn_Fernhorn.bundle/Fonts/Rocket.otf" }

    ShaderEffect {
        property real time: clock.elapsedTime
        property real seedValue: 7
        property size resolution: Qt.size(width * Screen.devicePixelRatio,
                                          height * Screen.devicePixelRatio)
        width: 400
        height: 300
        fragmentShader: waveform
        FrameAnimation { id: clock; running: true }
    }
    Text {
        width: 400; height: 300
        horizontalAlignment: Text.AlignHCenter; verticalAlignment: Text.AlignVCenter
        text: "Larkvox"
        color: "white"; style: Text.Raised; styleColor: "#66000000"
        font.family: rocket.name; font.pixelSize: 36
    }
    component Line: Text {
        width: 400
        horizontalAlignment: Text.AlignHCenter
        color: "#d8d6dc"
        font.pixelSize: 12; font.weight: Font.Medium
    }
    Column {
        y: 332
        spacing: 16
        Column {
            Line { text: "Larkvox is now available as an Audio Unit."; font.pixelSize: 15; font.bold: true }
            Line { text: "Keep this app in your applications folder."; font.pixelSize: 15; font.bold: true }
        }
        Column {
            Line { text: "To use Larkvox, insert it as" }
            Line { text: "a plugin on an instrument track." }
        }
        Line { text: "1.0.0 (1)" }
        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            source: bundles + "Driftwood_Driftwood.bundle/Images/window-fennick@1x.png"
        }
    }
    component PushButton: BorderImage {
        property alias text: label.text
        width: 184; height: 24
        border { left: 6; right: 6; top: 6; bottom: 6 }
        source: bundles + "Driftwood_Driftwood.bundle/Images/dwk-button@1x.png"
        Text { id: label; anchors.centerIn: parent; color: "#d8d6dc"; font.pixelSize: 12; font.bold: true }
    }
    Row {
        x: 8; y: 534
        spacing: 16
        PushButton { text: "Help" }
        PushButton { text: "Fennick Website" }
    }
}
