select a, 'x;y' from "t;u" where b = ? -- c;
; update t set a = E'\';' /* ; /* */ */