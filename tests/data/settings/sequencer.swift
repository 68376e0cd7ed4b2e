#if os(OSX)
import ZQSwiftUI
#else
import ZQSwiftUI_iOS
#endif


extension ZQConfig {

	var track1_Name : String {
#if DEBUG
		string ("track1", "Name")
#else
		"Track 1"
#endif
	}

	var track1_Volume : Double {
#if DEBUG
		double ("track1", "Volume")
#else
		0.15
#endif
	}

	var track1_Pan : Double {
#if DEBUG
		double ("track1", "Pan")
#else
		0.07
#endif
	}

	var track1_Mute : Bool {
#if DEBUG
		bool ("track1", "Mute")
#else
		false
#endif
	}

	var track1_Solo : Bool {
#if DEBUG
		bool ("track1", "Solo")
#else
		false
#endif
	}

	var track1_midiChannel : Int {
#if DEBUG
		int ("track1", "midiChannel")
#else
		1
#endif
	}

	var track1_Program : Int {
#if DEBUG
		int ("track1", "Program")
#else
		81
#endif
	}

	var track1_Transpose : Int {
#if DEBUG
		int ("track1", "Transpose")
#else
		-16
#endif
	}

	var track1_delayMs : Double {
#if DEBUG
		double ("track1", "delayMs")
#else
		27.6
#endif
	}

	var track1_Colour : String {
#if DEBUG
		string ("track1", "Colour")
#else
		"#83f73f"
#endif
	}

	var track1_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track1", "laneSize")
#else
		ZQUICPointSize (x: 1464.0, y: 57.0)
#endif
	}

	var track1_Swing : Double {
#if DEBUG
		double ("track1", "Swing")
#else
		0.71
#endif
	}

	var track2_Name : String {
#if DEBUG
		string ("track2", "Name")
#else
		"Track 2"
#endif
	}

	var track2_Volume : Double {
#if DEBUG
		double ("track2", "Volume")
#else
		0.4
#endif
	}

	var track2_Pan : Double {
#if DEBUG
		double ("track2", "Pan")
#else
		-0.79
#endif
	}

	var track2_Mute : Bool {
#if DEBUG
		bool ("track2", "Mute")
#else
		false
#endif
	}

	var track2_Solo : Bool {
#if DEBUG
		bool ("track2", "Solo")
#else
		false
#endif
	}

	var track2_midiChannel : Int {
#if DEBUG
		int ("track2", "midiChannel")
#else
		2
#endif
	}

	var track2_Program : Int {
#if DEBUG
		int ("track2", "Program")
#else
		15
#endif
	}

	var track2_Transpose : Int {
#if DEBUG
		int ("track2", "Transpose")
#else
		-12
#endif
	}

	var track2_delayMs : Double {
#if DEBUG
		double ("track2", "delayMs")
#else
		2.7
#endif
	}

	var track2_Colour : String {
#if DEBUG
		string ("track2", "Colour")
#else
		"#357181"
#endif
	}

	var track2_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track2", "laneSize")
#else
		ZQUICPointSize (x: 1102.0, y: 26.0)
#endif
	}

	var track2_Swing : Double {
#if DEBUG
		double ("track2", "Swing")
#else
		0.53
#endif
	}

	var track3_Name : String {
#if DEBUG
		string ("track3", "Name")
#else
		"Track 3"
#endif
	}

	var track3_Volume : Double {
#if DEBUG
		double ("track3", "Volume")
#else
		0.07
#endif
	}

	var track3_Pan : Double {
#if DEBUG
		double ("track3", "Pan")
#else
		-0.58
#endif
	}

	var track3_Mute : Bool {
#if DEBUG
		bool ("track3", "Mute")
#else
		false
#endif
	}

	var track3_Solo : Bool {
#if DEBUG
		bool ("track3", "Solo")
#else
		false
#endif
	}

	var track3_midiChannel : Int {
#if DEBUG
		int ("track3", "midiChannel")
#else
		3
#endif
	}

	var track3_Program : Int {
#if DEBUG
		int ("track3", "Program")
#else
		64
#endif
	}

	var track3_Transpose : Int {
#if DEBUG
		int ("track3", "Transpose")
#else
		-2
#endif
	}

	var track3_delayMs : Double {
#if DEBUG
		double ("track3", "delayMs")
#else
		24.1
#endif
	}

	var track3_Colour : String {
#if DEBUG
		string ("track3", "Colour")
#else
		"#7961fd"
#endif
	}

	var track3_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track3", "laneSize")
#else
		ZQUICPointSize (x: 451.0, y: 23.0)
#endif
	}

	var track3_Swing : Double {
#if DEBUG
		double ("track3", "Swing")
#else
		0.65
#endif
	}

	var track4_Name : String {
#if DEBUG
		string ("track4", "Name")
#else
		"Track 4"
#endif
	}

	var track4_Volume : Double {
#if DEBUG
		double ("track4", "Volume")
#else
		0.48
#endif
	}

	var track4_Pan : Double {
#if DEBUG
		double ("track4", "Pan")
#else
		0.38
#endif
	}

	var track4_Mute : Bool {
#if DEBUG
		bool ("track4", "Mute")
#else
		false
#endif
	}

	var track4_Solo : Bool {
#if DEBUG
		bool ("track4", "Solo")
#else
		false
#endif
	}

	var track4_midiChannel : Int {
#if DEBUG
		int ("track4", "midiChannel")
#else
		4
#endif
	}

	var track4_Program : Int {
#if DEBUG
		int ("track4", "Program")
#else
		52
#endif
	}

	var track4_Transpose : Int {
#if DEBUG
		int ("track4", "Transpose")
#else
		9
#endif
	}

	var track4_delayMs : Double {
#if DEBUG
		double ("track4", "delayMs")
#else
		14.5
#endif
	}

	var track4_Colour : String {
#if DEBUG
		string ("track4", "Colour")
#else
		"#b0a844"
#endif
	}

	var track4_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track4", "laneSize")
#else
		ZQUICPointSize (x: 1312.0, y: 17.0)
#endif
	}

	var track4_Swing : Double {
#if DEBUG
		double ("track4", "Swing")
#else
		0.74
#endif
	}

	var track5_Name : String {
#if DEBUG
		string ("track5", "Name")
#else
		"Track 5"
#endif
	}

	var track5_Volume : Double {
#if DEBUG
		double ("track5", "Volume")
#else
		0.36
#endif
	}

	var track5_Pan : Double {
#if DEBUG
		double ("track5", "Pan")
#else
		-0.55
#endif
	}

	var track5_Mute : Bool {
#if DEBUG
		bool ("track5", "Mute")
#else
		false
#endif
	}

	var track5_Solo : Bool {
#if DEBUG
		bool ("track5", "Solo")
#else
		false
#endif
	}

	var track5_midiChannel : Int {
#if DEBUG
		int ("track5", "midiChannel")
#else
		5
#endif
	}

	var track5_Program : Int {
#if DEBUG
		int ("track5", "Program")
#else
		84
#endif
	}

	var track5_Transpose : Int {
#if DEBUG
		int ("track5", "Transpose")
#else
		16
#endif
	}

	var track5_delayMs : Double {
#if DEBUG
		double ("track5", "delayMs")
#else
		8.9
#endif
	}

	var track5_Colour : String {
#if DEBUG
		string ("track5", "Colour")
#else
		"#cfbf33"
#endif
	}

	var track5_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track5", "laneSize")
#else
		ZQUICPointSize (x: 599.0, y: 31.0)
#endif
	}

	var track5_Swing : Double {
#if DEBUG
		double ("track5", "Swing")
#else
		0.62
#endif
	}

	var track6_Name : String {
#if DEBUG
		string ("track6", "Name")
#else
		"Track 6"
#endif
	}

	var track6_Volume : Double {
#if DEBUG
		double ("track6", "Volume")
#else
		0.47
#endif
	}

	var track6_Pan : Double {
#if DEBUG
		double ("track6", "Pan")
#else
		-0.61
#endif
	}

	var track6_Mute : Bool {
#if DEBUG
		bool ("track6", "Mute")
#else
		false
#endif
	}

	var track6_Solo : Bool {
#if DEBUG
		bool ("track6", "Solo")
#else
		false
#endif
	}

	var track6_midiChannel : Int {
#if DEBUG
		int ("track6", "midiChannel")
#else
		6
#endif
	}

	var track6_Program : Int {
#if DEBUG
		int ("track6", "Program")
#else
		88
#endif
	}

	var track6_Transpose : Int {
#if DEBUG
		int ("track6", "Transpose")
#else
		4
#endif
	}

	var track6_delayMs : Double {
#if DEBUG
		double ("track6", "delayMs")
#else
		32.3
#endif
	}

	var track6_Colour : String {
#if DEBUG
		string ("track6", "Colour")
#else
		"#b91ee9"
#endif
	}

	var track6_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track6", "laneSize")
#else
		ZQUICPointSize (x: 915.0, y: 39.0)
#endif
	}

	var track6_Swing : Double {
#if DEBUG
		double ("track6", "Swing")
#else
		0.52
#endif
	}

	var track7_Name : String {
#if DEBUG
		string ("track7", "Name")
#else
		"Track 7"
#endif
	}

	var track7_Volume : Double {
#if DEBUG
		double ("track7", "Volume")
#else
		0.0
#endif
	}

	var track7_Pan : Double {
#if DEBUG
		double ("track7", "Pan")
#else
		0.82
#endif
	}

	var track7_Mute : Bool {
#if DEBUG
		bool ("track7", "Mute")
#else
		false
#endif
	}

	var track7_Solo : Bool {
#if DEBUG
		bool ("track7", "Solo")
#else
		false
#endif
	}

	var track7_midiChannel : Int {
#if DEBUG
		int ("track7", "midiChannel")
#else
		7
#endif
	}

	var track7_Program : Int {
#if DEBUG
		int ("track7", "Program")
#else
		21
#endif
	}

	var track7_Transpose : Int {
#if DEBUG
		int ("track7", "Transpose")
#else
		18
#endif
	}

	var track7_delayMs : Double {
#if DEBUG
		double ("track7", "delayMs")
#else
		4.8
#endif
	}

	var track7_Colour : String {
#if DEBUG
		string ("track7", "Colour")
#else
		"#637714"
#endif
	}

	var track7_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track7", "laneSize")
#else
		ZQUICPointSize (x: 608.0, y: 46.0)
#endif
	}

	var track7_Swing : Double {
#if DEBUG
		double ("track7", "Swing")
#else
		0.55
#endif
	}

	var track8_Name : String {
#if DEBUG
		string ("track8", "Name")
#else
		"Track 8"
#endif
	}

	var track8_Volume : Double {
#if DEBUG
		double ("track8", "Volume")
#else
		0.95
#endif
	}

	var track8_Pan : Double {
#if DEBUG
		double ("track8", "Pan")
#else
		0.45
#endif
	}

	var track8_Mute : Bool {
#if DEBUG
		bool ("track8", "Mute")
#else
		true
#endif
	}

	var track8_Solo : Bool {
#if DEBUG
		bool ("track8", "Solo")
#else
		false
#endif
	}

	var track8_midiChannel : Int {
#if DEBUG
		int ("track8", "midiChannel")
#else
		8
#endif
	}

	var track8_Program : Int {
#if DEBUG
		int ("track8", "Program")
#else
		32
#endif
	}

	var track8_Transpose : Int {
#if DEBUG
		int ("track8", "Transpose")
#else
		-23
#endif
	}

	var track8_delayMs : Double {
#if DEBUG
		double ("track8", "delayMs")
#else
		6.0
#endif
	}

	var track8_Colour : String {
#if DEBUG
		string ("track8", "Colour")
#else
		"#e7a463"
#endif
	}

	var track8_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track8", "laneSize")
#else
		ZQUICPointSize (x: 1153.0, y: 57.0)
#endif
	}

	var track8_Swing : Double {
#if DEBUG
		double ("track8", "Swing")
#else
		0.54
#endif
	}

	var track9_Name : String {
#if DEBUG
		string ("track9", "Name")
#else
		"Track 9"
#endif
	}

	var track9_Volume : Double {
#if DEBUG
		double ("track9", "Volume")
#else
		0.01
#endif
	}

	var track9_Pan : Double {
#if DEBUG
		double ("track9", "Pan")
#else
		0.94
#endif
	}

	var track9_Mute : Bool {
#if DEBUG
		bool ("track9", "Mute")
#else
		false
#endif
	}

	var track9_Solo : Bool {
#if DEBUG
		bool ("track9", "Solo")
#else
		false
#endif
	}

	var track9_midiChannel : Int {
#if DEBUG
		int ("track9", "midiChannel")
#else
		9
#endif
	}

	var track9_Program : Int {
#if DEBUG
		int ("track9", "Program")
#else
		35
#endif
	}

	var track9_Transpose : Int {
#if DEBUG
		int ("track9", "Transpose")
#else
		3
#endif
	}

	var track9_delayMs : Double {
#if DEBUG
		double ("track9", "delayMs")
#else
		39.5
#endif
	}

	var track9_Colour : String {
#if DEBUG
		string ("track9", "Colour")
#else
		"#31dec4"
#endif
	}

	var track9_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track9", "laneSize")
#else
		ZQUICPointSize (x: 632.0, y: 17.0)
#endif
	}

	var track9_Swing : Double {
#if DEBUG
		double ("track9", "Swing")
#else
		0.58
#endif
	}

	var track10_Name : String {
#if DEBUG
		string ("track10", "Name")
#else
		"Track 10"
#endif
	}

	var track10_Volume : Double {
#if DEBUG
		double ("track10", "Volume")
#else
		0.91
#endif
	}

	var track10_Pan : Double {
#if DEBUG
		double ("track10", "Pan")
#else
		-0.29
#endif
	}

	var track10_Mute : Bool {
#if DEBUG
		bool ("track10", "Mute")
#else
		false
#endif
	}

	var track10_Solo : Bool {
#if DEBUG
		bool ("track10", "Solo")
#else
		false
#endif
	}

	var track10_midiChannel : Int {
#if DEBUG
		int ("track10", "midiChannel")
#else
		10
#endif
	}

	var track10_Program : Int {
#if DEBUG
		int ("track10", "Program")
#else
		107
#endif
	}

	var track10_Transpose : Int {
#if DEBUG
		int ("track10", "Transpose")
#else
		8
#endif
	}

	var track10_delayMs : Double {
#if DEBUG
		double ("track10", "delayMs")
#else
		5.2
#endif
	}

	var track10_Colour : String {
#if DEBUG
		string ("track10", "Colour")
#else
		"#26debf"
#endif
	}

	var track10_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track10", "laneSize")
#else
		ZQUICPointSize (x: 1272.0, y: 48.0)
#endif
	}

	var track10_Swing : Double {
#if DEBUG
		double ("track10", "Swing")
#else
		0.5
#endif
	}

	var track11_Name : String {
#if DEBUG
		string ("track11", "Name")
#else
		"Track 11"
#endif
	}

	var track11_Volume : Double {
#if DEBUG
		double ("track11", "Volume")
#else
		0.73
#endif
	}

	var track11_Pan : Double {
#if DEBUG
		double ("track11", "Pan")
#else
		0.11
#endif
	}

	var track11_Mute : Bool {
#if DEBUG
		bool ("track11", "Mute")
#else
		false
#endif
	}

	var track11_Solo : Bool {
#if DEBUG
		bool ("track11", "Solo")
#else
		false
#endif
	}

	var track11_midiChannel : Int {
#if DEBUG
		int ("track11", "midiChannel")
#else
		11
#endif
	}

	var track11_Program : Int {
#if DEBUG
		int ("track11", "Program")
#else
		123
#endif
	}

	var track11_Transpose : Int {
#if DEBUG
		int ("track11", "Transpose")
#else
		-18
#endif
	}

	var track11_delayMs : Double {
#if DEBUG
		double ("track11", "delayMs")
#else
		35.3
#endif
	}

	var track11_Colour : String {
#if DEBUG
		string ("track11", "Colour")
#else
		"#0e8bec"
#endif
	}

	var track11_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track11", "laneSize")
#else
		ZQUICPointSize (x: 708.0, y: 28.0)
#endif
	}

	var track11_Swing : Double {
#if DEBUG
		double ("track11", "Swing")
#else
		0.58
#endif
	}

	var track12_Name : String {
#if DEBUG
		string ("track12", "Name")
#else
		"Track 12"
#endif
	}

	var track12_Volume : Double {
#if DEBUG
		double ("track12", "Volume")
#else
		0.61
#endif
	}

	var track12_Pan : Double {
#if DEBUG
		double ("track12", "Pan")
#else
		0.01
#endif
	}

	var track12_Mute : Bool {
#if DEBUG
		bool ("track12", "Mute")
#else
		false
#endif
	}

	var track12_Solo : Bool {
#if DEBUG
		bool ("track12", "Solo")
#else
		false
#endif
	}

	var track12_midiChannel : Int {
#if DEBUG
		int ("track12", "midiChannel")
#else
		12
#endif
	}

	var track12_Program : Int {
#if DEBUG
		int ("track12", "Program")
#else
		70
#endif
	}

	var track12_Transpose : Int {
#if DEBUG
		int ("track12", "Transpose")
#else
		4
#endif
	}

	var track12_delayMs : Double {
#if DEBUG
		double ("track12", "delayMs")
#else
		20.3
#endif
	}

	var track12_Colour : String {
#if DEBUG
		string ("track12", "Colour")
#else
		"#ceaf49"
#endif
	}

	var track12_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track12", "laneSize")
#else
		ZQUICPointSize (x: 1179.0, y: 48.0)
#endif
	}

	var track12_Swing : Double {
#if DEBUG
		double ("track12", "Swing")
#else
		0.57
#endif
	}

	var track13_Name : String {
#if DEBUG
		string ("track13", "Name")
#else
		"Track 13"
#endif
	}

	var track13_Volume : Double {
#if DEBUG
		double ("track13", "Volume")
#else
		0.45
#endif
	}

	var track13_Pan : Double {
#if DEBUG
		double ("track13", "Pan")
#else
		-0.17
#endif
	}

	var track13_Mute : Bool {
#if DEBUG
		bool ("track13", "Mute")
#else
		false
#endif
	}

	var track13_Solo : Bool {
#if DEBUG
		bool ("track13", "Solo")
#else
		false
#endif
	}

	var track13_midiChannel : Int {
#if DEBUG
		int ("track13", "midiChannel")
#else
		13
#endif
	}

	var track13_Program : Int {
#if DEBUG
		int ("track13", "Program")
#else
		80
#endif
	}

	var track13_Transpose : Int {
#if DEBUG
		int ("track13", "Transpose")
#else
		-20
#endif
	}

	var track13_delayMs : Double {
#if DEBUG
		double ("track13", "delayMs")
#else
		26.8
#endif
	}

	var track13_Colour : String {
#if DEBUG
		string ("track13", "Colour")
#else
		"#6da79a"
#endif
	}

	var track13_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track13", "laneSize")
#else
		ZQUICPointSize (x: 349.0, y: 29.0)
#endif
	}

	var track13_Swing : Double {
#if DEBUG
		double ("track13", "Swing")
#else
		0.71
#endif
	}

	var track14_Name : String {
#if DEBUG
		string ("track14", "Name")
#else
		"Track 14"
#endif
	}

	var track14_Volume : Double {
#if DEBUG
		double ("track14", "Volume")
#else
		0.88
#endif
	}

	var track14_Pan : Double {
#if DEBUG
		double ("track14", "Pan")
#else
		0.94
#endif
	}

	var track14_Mute : Bool {
#if DEBUG
		bool ("track14", "Mute")
#else
		false
#endif
	}

	var track14_Solo : Bool {
#if DEBUG
		bool ("track14", "Solo")
#else
		false
#endif
	}

	var track14_midiChannel : Int {
#if DEBUG
		int ("track14", "midiChannel")
#else
		14
#endif
	}

	var track14_Program : Int {
#if DEBUG
		int ("track14", "Program")
#else
		24
#endif
	}

	var track14_Transpose : Int {
#if DEBUG
		int ("track14", "Transpose")
#else
		1
#endif
	}

	var track14_delayMs : Double {
#if DEBUG
		double ("track14", "delayMs")
#else
		35.4
#endif
	}

	var track14_Colour : String {
#if DEBUG
		string ("track14", "Colour")
#else
		"#29acf1"
#endif
	}

	var track14_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track14", "laneSize")
#else
		ZQUICPointSize (x: 1567.0, y: 30.0)
#endif
	}

	var track14_Swing : Double {
#if DEBUG
		double ("track14", "Swing")
#else
		0.55
#endif
	}

	var track15_Name : String {
#if DEBUG
		string ("track15", "Name")
#else
		"Track 15"
#endif
	}

	var track15_Volume : Double {
#if DEBUG
		double ("track15", "Volume")
#else
		0.02
#endif
	}

	var track15_Pan : Double {
#if DEBUG
		double ("track15", "Pan")
#else
		0.11
#endif
	}

	var track15_Mute : Bool {
#if DEBUG
		bool ("track15", "Mute")
#else
		false
#endif
	}

	var track15_Solo : Bool {
#if DEBUG
		bool ("track15", "Solo")
#else
		false
#endif
	}

	var track15_midiChannel : Int {
#if DEBUG
		int ("track15", "midiChannel")
#else
		15
#endif
	}

	var track15_Program : Int {
#if DEBUG
		int ("track15", "Program")
#else
		4
#endif
	}

	var track15_Transpose : Int {
#if DEBUG
		int ("track15", "Transpose")
#else
		0
#endif
	}

	var track15_delayMs : Double {
#if DEBUG
		double ("track15", "delayMs")
#else
		13.3
#endif
	}

	var track15_Colour : String {
#if DEBUG
		string ("track15", "Colour")
#else
		"#9fb9af"
#endif
	}

	var track15_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track15", "laneSize")
#else
		ZQUICPointSize (x: 805.0, y: 48.0)
#endif
	}

	var track15_Swing : Double {
#if DEBUG
		double ("track15", "Swing")
#else
		0.52
#endif
	}

	var track16_Name : String {
#if DEBUG
		string ("track16", "Name")
#else
		"Track 16"
#endif
	}

	var track16_Volume : Double {
#if DEBUG
		double ("track16", "Volume")
#else
		0.78
#endif
	}

	var track16_Pan : Double {
#if DEBUG
		double ("track16", "Pan")
#else
		-0.46
#endif
	}

	var track16_Mute : Bool {
#if DEBUG
		bool ("track16", "Mute")
#else
		true
#endif
	}

	var track16_Solo : Bool {
#if DEBUG
		bool ("track16", "Solo")
#else
		false
#endif
	}

	var track16_midiChannel : Int {
#if DEBUG
		int ("track16", "midiChannel")
#else
		16
#endif
	}

	var track16_Program : Int {
#if DEBUG
		int ("track16", "Program")
#else
		108
#endif
	}

	var track16_Transpose : Int {
#if DEBUG
		int ("track16", "Transpose")
#else
		19
#endif
	}

	var track16_delayMs : Double {
#if DEBUG
		double ("track16", "delayMs")
#else
		32.8
#endif
	}

	var track16_Colour : String {
#if DEBUG
		string ("track16", "Colour")
#else
		"#423433"
#endif
	}

	var track16_laneSize : ZQUICPointSize {
#if DEBUG
		pointSize ("track16", "laneSize")
#else
		ZQUICPointSize (x: 1031.0, y: 25.0)
#endif
	}

	var track16_Swing : Double {
#if DEBUG
		double ("track16", "Swing")
#else
		0.67
#endif
	}

	var Transport_Tempo : Double {
#if DEBUG
		double ("Transport", "Tempo")
#else
		120.0
#endif
	}

	var Transport_beatsPerBar : Int {
#if DEBUG
		int ("Transport", "beatsPerBar")
#else
		4
#endif
	}

	var Transport_Loop : Bool {
#if DEBUG
		bool ("Transport", "Loop")
#else
		true
#endif
	}

	var Transport_preRollBars : Int {
#if DEBUG
		int ("Transport", "preRollBars")
#else
		1
#endif
	}

	var Transport_loopRange : ZQUICPointSize {
#if DEBUG
		pointSize ("Transport", "loopRange")
#else
		ZQUICPointSize (x: 0.0, y: 16.0)
#endif
	}

}