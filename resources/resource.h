// Every id of the program's resources. Included by the resource scripts too, so it holds definitions alone.
// An id is unique within its dialog or menu; the same number serves several dialogs.
#pragma once

#ifndef IDC_STATIC
#define IDC_STATIC -1
#endif

// Strings, icon, bitmaps
#define IDS_ABOUTBOX 101
#define IDI_PIXORA 128
#define IDB_ERROR 142
#define IDB_BANNER 162

// Dialog templates
#define IDD_PIXORA 102
#define IDD_PLEASE_WAIT 145
#define IDD_SPLASH 146
#define IDD_ABOUT 147
#define IDD_ONESHOT_MESSAGE 156
#define IDD_MAIN_OPTION 161
#define IDD_COORDINATE 165
#define IDD_VIEWER_OPTION 167
#define IDD_VALUE_ENTRY 168
#define IDD_IMG_IMPORT 191
#define IDD_DISPLAY 193
#define IDD_REGION_STYLE 200
#define IDD_PX_ERROR 204
#define IDD_CONFIRM_YES_CANCEL 214
#define IDD_CONFIRM_ERR 217
#define IDD_CONFIRM_OK 218

// Menus
#define IDR_MAIN_MENU 137
#define IDR_QUIT_MENU 140
#define IDR_DISPLAY_MENU 195

// System menu of the start-up dialog; below 0xF000 and a multiple of 16, as the system wants it
#define IDM_ABOUTBOX 16

// Main window (191)
#define IDC_MAIN_PATH 1173
#define IDC_MAIN_BROWSE 1300
#define IDC_MAIN_RELOAD 1303
#define IDC_MAIN_SIZE_LABEL 1296
#define IDC_MAIN_SIZE 1209
#define IDC_MAIN_EDIT 1065

// Main menu (137)
#define IDM_FILE_OPEN 32771
#define IDM_FILE_CLOSE_ALL 32772
#define IDM_FILE_RESTORE_DEFAULTS 32773
#define IDM_FILE_EXIT 32774
#define IDM_OPTION_VIEWER 32775
#define IDM_OPTION_REGION_STYLE 32776
#define IDM_OPTION_MAIN 32777
#define IDM_HELP_ABOUT 32778

// Path box of the main window: its context menu is made at run time
#define IDM_PATH_COPY 32779

// Message and confirmation dialogs (204; 217 and 218; 214; 156)
#define IDC_PX_LINE1 1308
#define IDC_PX_LINE2 1310
#define IDC_PX_LINE3 1309
#define IDC_CONFIRM_LINE1 1053
#define IDC_CONFIRM_LINE2 1051
#define IDC_CONFIRM_LINE3 1052
#define IDC_CONFIRM_PICTURE 1022
#define IDC_ASK_LINE1 1079
#define IDC_ASK_LINE2 1081
#define IDC_ASK_LINE3 1080
#define IDC_ASK_CANCEL 1314
#define IDC_ONESHOT_LINE 1067

// Display Size Value (168)
#define IDC_VALUE_EDIT 1002
#define IDC_VALUE_OK 1003

// Splash and About (146, 147)
#define IDC_IDENTITY_PICTURE 1164
#define IDC_IDENTITY_VERSION 1165
#define IDC_IDENTITY_DESCRIPTION 1166
#define IDC_IDENTITY_SPARE 1167
#define IDC_IDENTITY_COMPANY 1168
#define IDC_IDENTITY_BUILD 1169
#define IDC_IDENTITY_AUDIENCE 1145
#define IDC_IDENTITY_LINK 1170

// Please wait (145)
#define IDC_WAIT_TEXT 1064

// Viewer Option (167)
#define IDC_CAP_SIMPLE 1243
#define IDC_CAP_FULL 1254
#define IDC_LVL_ON 1246
#define IDC_LVL_OFF 1260
#define IDC_BINNING_256 1247
#define IDC_BINNING_NONE 1248
#define IDC_BITS_AUTO 1244
#define IDC_BITS_16 1242
#define IDC_BITS_14 1256
#define IDC_BITS_12 1253
#define IDC_BITS_10 1255
#define IDC_BITS_8 1257

// Line and Region Style (200)
#define IDC_LINE_GREEN 1244
#define IDC_LINE_RED 1247
#define IDC_LINE_GRAY 1246
#define IDC_BORDER_GREEN 1241
#define IDC_BORDER_RED 1242
#define IDC_BORDER_GRAY 1243
#define IDC_BORDER_AREA 1306
#define IDC_BORDER_LINE 1307
#define IDC_MARK_GREEN 1245
#define IDC_MARK_RED 1248
#define IDC_MARK_GRAY 1249
#define IDC_MARK_WHITE 1250

// Main Dialog Option (161)
#define IDC_POS_TOP_LEFT 1073
#define IDC_POS_TOP_RIGHT 1074
#define IDC_POS_LAST 1075

// Viewer: commands of its context menu (195) and of the quit menu (140)
#define IDM_VIEW_STATISTICS 32923
#define IDM_VIEW_H_PROFILE 32917
#define IDM_VIEW_V_PROFILE 32918
#define IDM_VIEW_HISTOGRAM 32919
#define IDM_VIEW_IMAGE_INFO 32921
#define IDM_VIEW_SAVE_REGION 32810
#define IDM_VIEW_CLOSE 32794
#define IDM_SIZE_BY_VALUE 32805
#define IDM_SIZE_FIT 32812
#define IDM_SIZE_5 32806
#define IDM_SIZE_10 32782
#define IDM_SIZE_20 32783
#define IDM_SIZE_30 32784
#define IDM_SIZE_40 32785
#define IDM_SIZE_50 32786
#define IDM_SIZE_60 32787
#define IDM_SIZE_70 32788
#define IDM_SIZE_80 32789
#define IDM_SIZE_90 32790
#define IDM_SIZE_100 32791
#define IDM_SIZE_150 32792
#define IDM_SIZE_200 32793
#define IDM_SIZE_500 32795
#define IDM_SIZE_1000 32796
#define IDM_SIZE_DEFINED 32802
#define IDM_SIZE_SAVE_DEFAULT 32801
#define IDM_QUIT_UNDO 32800
#define IDM_QUIT_EXIT_CHANGE 32799

// Region Coordinates (165)
#define IDC_COORD_LABEL1 1220
#define IDC_COORD_LEFT 1173
#define IDC_COORD_TOP 1175
#define IDC_COORD_LABEL2 1221
#define IDC_COORD_RIGHT 1176
#define IDC_COORD_BOTTOM 1177
#define IDC_COORD_EDIT 1056
#define IDC_COORD_ENTER 1174

// Analysis views

// Statistics View (154)
#define IDD_STATISTICS 154
#define IDC_STAT_FORMAT 1245
#define IDC_STAT_COLOUR 1246
#define IDC_STAT_IMAGE_SIZE 1226
#define IDC_STAT_DISPLAY_SIZE 1227
#define IDC_STAT_REGION_SIZE 1225
#define IDC_STAT_REGION_BUTTON 1056
#define IDC_STAT_CORNER 1057
#define IDC_STAT_MOVE 1058
#define IDC_STAT_COORDINATES 1062
#define IDC_STAT_CHANNEL 1006
#define IDC_STAT_MAX 1173
#define IDC_STAT_MIN 1174
#define IDC_STAT_MEAN 1176
#define IDC_STAT_STD 1175
#define IDC_STAT_LOCATION 1237
#define IDC_STAT_VALUE_TOP 1239
#define IDC_STAT_VALUE_MIDDLE 1240
#define IDC_STAT_VALUE_BOTTOM 1241
