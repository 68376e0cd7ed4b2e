#if os(OSX)
import ZQSwiftUI
#else
import ZQSwiftUI_iOS
#endif


extension ZQConfig {

	var Roads_Visible : Bool {
#if DEBUG
		bool ("Roads", "Visible")
#else
		true
#endif
	}

	var Roads_Opacity : Double {
#if DEBUG
		double ("Roads", "Opacity")
#else
		0.223
#endif
	}

	var Roads_minZoomLevel : Int {
#if DEBUG
		int ("Roads", "minZoomLevel")
#else
		10
#endif
	}

	var Roads_lineWidth : Double {
#if DEBUG
		double ("Roads", "lineWidth")
#else
		2.5
#endif
	}

	var Roads_Color : String {
#if DEBUG
		string ("Roads", "Color")
#else
		"#f29d0d"
#endif
	}

	var Roads_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Roads", "labelOffset")
#else
		ZQUICPointSize (x: -8.5, y: 8.0)
#endif
	}

	var Rail_Visible : Bool {
#if DEBUG
		bool ("Rail", "Visible")
#else
		false
#endif
	}

	var Rail_Opacity : Double {
#if DEBUG
		double ("Rail", "Opacity")
#else
		0.29
#endif
	}

	var Rail_minZoomLevel : Int {
#if DEBUG
		int ("Rail", "minZoomLevel")
#else
		2
#endif
	}

	var Rail_lineWidth : Double {
#if DEBUG
		double ("Rail", "lineWidth")
#else
		2.25
#endif
	}

	var Rail_Color : String {
#if DEBUG
		string ("Rail", "Color")
#else
		"#1e27a1"
#endif
	}

	var Rail_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Rail", "labelOffset")
#else
		ZQUICPointSize (x: 8.0, y: -0.5)
#endif
	}

	var Water_Visible : Bool {
#if DEBUG
		bool ("Water", "Visible")
#else
		true
#endif
	}

	var Water_Opacity : Double {
#if DEBUG
		double ("Water", "Opacity")
#else
		0.372
#endif
	}

	var Water_minZoomLevel : Int {
#if DEBUG
		int ("Water", "minZoomLevel")
#else
		8
#endif
	}

	var Water_lineWidth : Double {
#if DEBUG
		double ("Water", "lineWidth")
#else
		3.0
#endif
	}

	var Water_Color : String {
#if DEBUG
		string ("Water", "Color")
#else
		"#1012f0"
#endif
	}

	var Water_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Water", "labelOffset")
#else
		ZQUICPointSize (x: 8.0, y: -8.5)
#endif
	}

	var Buildings_Visible : Bool {
#if DEBUG
		bool ("Buildings", "Visible")
#else
		true
#endif
	}

	var Buildings_Opacity : Double {
#if DEBUG
		double ("Buildings", "Opacity")
#else
		0.586
#endif
	}

	var Buildings_minZoomLevel : Int {
#if DEBUG
		int ("Buildings", "minZoomLevel")
#else
		7
#endif
	}

	var Buildings_lineWidth : Double {
#if DEBUG
		double ("Buildings", "lineWidth")
#else
		1.5
#endif
	}

	var Buildings_Color : String {
#if DEBUG
		string ("Buildings", "Color")
#else
		"#4cbd87"
#endif
	}

	var Buildings_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Buildings", "labelOffset")
#else
		ZQUICPointSize (x: -2.5, y: -4.5)
#endif
	}

	var landUse_Visible : Bool {
#if DEBUG
		bool ("landUse", "Visible")
#else
		true
#endif
	}

	var landUse_Opacity : Double {
#if DEBUG
		double ("landUse", "Opacity")
#else
		0.343
#endif
	}

	var landUse_minZoomLevel : Int {
#if DEBUG
		int ("landUse", "minZoomLevel")
#else
		7
#endif
	}

	var landUse_lineWidth : Double {
#if DEBUG
		double ("landUse", "lineWidth")
#else
		1.25
#endif
	}

	var landUse_Color : String {
#if DEBUG
		string ("landUse", "Color")
#else
		"#9be4bc"
#endif
	}

	var landUse_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("landUse", "labelOffset")
#else
		ZQUICPointSize (x: -8.0, y: -6.5)
#endif
	}

	var Borders_Visible : Bool {
#if DEBUG
		bool ("Borders", "Visible")
#else
		true
#endif
	}

	var Borders_Opacity : Double {
#if DEBUG
		double ("Borders", "Opacity")
#else
		0.039
#endif
	}

	var Borders_minZoomLevel : Int {
#if DEBUG
		int ("Borders", "minZoomLevel")
#else
		10
#endif
	}

	var Borders_lineWidth : Double {
#if DEBUG
		double ("Borders", "lineWidth")
#else
		0.5
#endif
	}

	var Borders_Color : String {
#if DEBUG
		string ("Borders", "Color")
#else
		"#c3baea"
#endif
	}

	var Borders_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Borders", "labelOffset")
#else
		ZQUICPointSize (x: 7.5, y: 8.0)
#endif
	}

	var Labels_Visible : Bool {
#if DEBUG
		bool ("Labels", "Visible")
#else
		true
#endif
	}

	var Labels_Opacity : Double {
#if DEBUG
		double ("Labels", "Opacity")
#else
		0.58
#endif
	}

	var Labels_minZoomLevel : Int {
#if DEBUG
		int ("Labels", "minZoomLevel")
#else
		7
#endif
	}

	var Labels_lineWidth : Double {
#if DEBUG
		double ("Labels", "lineWidth")
#else
		0.5
#endif
	}

	var Labels_Color : String {
#if DEBUG
		string ("Labels", "Color")
#else
		"#d70820"
#endif
	}

	var Labels_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Labels", "labelOffset")
#else
		ZQUICPointSize (x: -7.5, y: -1.5)
#endif
	}

	var pointsOfInterest_Visible : Bool {
#if DEBUG
		bool ("pointsOfInterest", "Visible")
#else
		true
#endif
	}

	var pointsOfInterest_Opacity : Double {
#if DEBUG
		double ("pointsOfInterest", "Opacity")
#else
		0.578
#endif
	}

	var pointsOfInterest_minZoomLevel : Int {
#if DEBUG
		int ("pointsOfInterest", "minZoomLevel")
#else
		10
#endif
	}

	var pointsOfInterest_lineWidth : Double {
#if DEBUG
		double ("pointsOfInterest", "lineWidth")
#else
		2.0
#endif
	}

	var pointsOfInterest_Color : String {
#if DEBUG
		string ("pointsOfInterest", "Color")
#else
		"#48db40"
#endif
	}

	var pointsOfInterest_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("pointsOfInterest", "labelOffset")
#else
		ZQUICPointSize (x: 2.0, y: 1.0)
#endif
	}

	var Contours_Visible : Bool {
#if DEBUG
		bool ("Contours", "Visible")
#else
		true
#endif
	}

	var Contours_Opacity : Double {
#if DEBUG
		double ("Contours", "Opacity")
#else
		0.218
#endif
	}

	var Contours_minZoomLevel : Int {
#if DEBUG
		int ("Contours", "minZoomLevel")
#else
		4
#endif
	}

	var Contours_lineWidth : Double {
#if DEBUG
		double ("Contours", "lineWidth")
#else
		0.75
#endif
	}

	var Contours_Color : String {
#if DEBUG
		string ("Contours", "Color")
#else
		"#bd0561"
#endif
	}

	var Contours_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Contours", "labelOffset")
#else
		ZQUICPointSize (x: -2.5, y: 2.5)
#endif
	}

	var Traffic_Visible : Bool {
#if DEBUG
		bool ("Traffic", "Visible")
#else
		true
#endif
	}

	var Traffic_Opacity : Double {
#if DEBUG
		double ("Traffic", "Opacity")
#else
		0.278
#endif
	}

	var Traffic_minZoomLevel : Int {
#if DEBUG
		int ("Traffic", "minZoomLevel")
#else
		2
#endif
	}

	var Traffic_lineWidth : Double {
#if DEBUG
		double ("Traffic", "lineWidth")
#else
		1.75
#endif
	}

	var Traffic_Color : String {
#if DEBUG
		string ("Traffic", "Color")
#else
		"#dd2e16"
#endif
	}

	var Traffic_labelOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Traffic", "labelOffset")
#else
		ZQUICPointSize (x: 7.5, y: -1.5)
#endif
	}

	var Server_URL : String {
#if DEBUG
		string ("Server", "URL")
#else
		"https://tiles.example.com/{z}/{x}/{y}.pbf"
#endif
	}

	var Server__2ndURL : String {
#if DEBUG
		string ("Server", "_2ndURL")
#else
		""
#endif
	}

	var Server_timeoutS : Double {
#if DEBUG
		double ("Server", "timeoutS")
#else
		30.0
#endif
	}

	var Server_Retries : Int {
#if DEBUG
		int ("Server", "Retries")
#else
		3
#endif
	}

	var Server_http2Enabled : Bool {
#if DEBUG
		bool ("Server", "http2Enabled")
#else
		true
#endif
	}

	var Server_cacheSize : Int {
#if DEBUG
		int ("Server", "cacheSize")
#else
		268435456
#endif
	}

	var Server_userAgent : String {
#if DEBUG
		string ("Server", "userAgent")
#else
		"MapViewer/1.0 (desktop; "test")"
#endif
	}

	var Карта_Язык : String {
#if DEBUG
		string ("Карта", "Язык")
#else
		"ru"
#endif
	}

	var Карта_Масштаб : Double {
#if DEBUG
		double ("Карта", "Масштаб")
#else
		1.5
#endif
	}

	var _3dView_Tilt : Double {
#if DEBUG
		double ("_3dView", "Tilt")
#else
		45.0
#endif
	}

	var _3dView_farPlane : Double {
#if DEBUG
		double ("_3dView", "farPlane")
#else
		10000000.0
#endif
	}

	var _3dView_nearPlane : Double {
#if DEBUG
		double ("_3dView", "nearPlane")
#else
		0.001
#endif
	}

	var _3dView_Epsilon : Double {
#if DEBUG
		double ("_3dView", "Epsilon")
#else
		1e-09
#endif
	}

}