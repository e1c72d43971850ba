Sub Main()
if not parentform.checkforevents then err.raise 1001
one = ""
if not parentform.checkforevents then err.raise 1001
other = ""
if not parentform.checkforevents then err.raise 1001
for i = 1 to 300
if not parentform.checkforevents then err.raise 1001
one = one & CHR(97 + i * 7 mod 26)
if not parentform.checkforevents then err.raise 1001
other = other & CHR(97 + i * 11 mod 26)
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
parentform.PrintString distance(one, other)
if not parentform.checkforevents then err.raise 1001
End Sub

if not parentform.checkforevents then err.raise 1001

Function distance(one, other)
if not parentform.checkforevents then err.raise 1001
DIM d(300, 300)
if not parentform.checkforevents then err.raise 1001
for i = 0 to 300
if not parentform.checkforevents then err.raise 1001
d(i, 0) = i
if not parentform.checkforevents then err.raise 1001
d(0, i) = i
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for i = 1 to 300
if not parentform.checkforevents then err.raise 1001
for j = 1 to 300
if not parentform.checkforevents then err.raise 1001
cost = 1
if not parentform.checkforevents then err.raise 1001
IF MID(one, i, 1) = MID(other, j, 1) THEN
if not parentform.checkforevents then err.raise 1001
cost = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
least = d(i - 1, j) + 1
if not parentform.checkforevents then err.raise 1001
IF d(i, j - 1) + 1 < least THEN
if not parentform.checkforevents then err.raise 1001
least = d(i, j - 1) + 1
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
IF d(i - 1, j - 1) + cost < least THEN
if not parentform.checkforevents then err.raise 1001
least = d(i - 1, j - 1) + cost
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
d(i, j) = least
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
distance = d(300, 300)
if not parentform.checkforevents then err.raise 1001
End Function
